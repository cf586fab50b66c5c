#pragma once

#include "apps/desk/store/GoalStore.hpp"

#include <string>
#include <string_view>

namespace vemra::desk {

/// A goal on one line: id, a tab, title, a line break.
///
/// What would break the line or move its border is written as an escape: `\t`, `\n`, `\r`, and so
/// that these can be told from text, `\\` for a backslash. All other bytes of id and title stand as
/// they are: a reader can turn the line back, and hand the id to the program.
std::string goalLine(const GoalListing& goal);

/// A text with those escapes.
std::string onOneLine(std::string_view text);

}  // namespace vemra::desk
