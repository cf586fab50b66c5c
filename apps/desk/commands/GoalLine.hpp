#pragma once

#include "apps/desk/store/GoalStore.hpp"

#include <string>

namespace vemra::desk {

/// A goal on one line: id, a tab, title, a line break.
///
/// A tab or a line break inside the id or the title is written as an escape (`\t`, `\n`, `\r`), and
/// a backslash as `\\`, so that a reader can restore both texts and pass the id to the program. All
/// other bytes stay as they are. This differs from `text::onOneLine`, which writes text for people
/// and cannot be reversed.
std::string goalLine(const GoalListing& goal);

}  // namespace vemra::desk
