#pragma once

#include "apps/desk/store/GoalStore.hpp"

#include <string>
#include <string_view>

namespace vemra::desk {

/// A goal on one line: id, a tab, title, a line break.
///
/// Id and title stand as they are, byte for byte, so that an id can be handed back to the program.
/// Only what would break the line or move its border is written as an escape: `\t`, `\n`, `\r`.
std::string goalLine(const GoalListing& goal);

/// A text with those escapes.
std::string onOneLine(std::string_view text);

}  // namespace vemra::desk
