#pragma once

#include "apps/desk/store/GoalStore.hpp"

#include <string>
#include <string_view>

namespace vemra::desk {

/// A goal on one line: id, a tab, title, a line break.
///
/// So that a line is always a goal and a tab always the border, what would break a line or steer a
/// terminal is written as an escape, in the id and in the title: `\t`, `\n`, `\r`, `\\` for the
/// reverse solidus itself, and `\u0085` for the other control characters, U+2028 and U+2029.
/// Everything else, ill-formed bytes included, is written as it is.
std::string goalLine(const GoalListing& goal);

/// A text with those escapes.
std::string onOneLine(std::string_view text);

}  // namespace vemra::desk
