#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

/// \file
/// What clients do with an element, on the screen or not. Its row, when it is in one, is brought in
/// as far as that takes; `row` is nullptr outside lists. Each may make the objects themselves leave.

namespace vemra::qt {

class AccessibleRow;
class AccessibleTree;

/// Runs the element's own action. Where it is drawn, the page itself hands the focus on to what takes
/// its place. Where it is not, its row is brought in for that.
void press(AccessibleTree& tree, AccessibleRow* row, ui::NodeID pressed);
/// Scrolls an element in and gives it the focus, unless it cannot have it.
void focus(AccessibleTree& tree, AccessibleRow* row, ui::NodeID node);
void scrollIn(AccessibleTree& tree, AccessibleRow* row, ui::NodeID node);

}  // namespace vemra::qt
