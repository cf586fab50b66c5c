#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

/// \file
/// The actions of clients on an element, visible or not. When the page has no nodes for the
/// element's row and an action needs them, it scrolls the row into view; `row` is nullptr outside
/// lists. Each action may remove the accessible objects themselves.

namespace vemra::qt {

class AccessibleRow;
class AccessibleTree;

/// Runs the element's own action. When the action removes the element, the focus moves to the control
/// that takes its place. The page moves it for an element that has a node on the page; for another
/// element, this function first scrolls its row into view.
void press(AccessibleTree& tree, AccessibleRow* row, ui::NodeID pressed);
/// Scrolls an element into view and gives it the focus if it can have it.
void focus(AccessibleTree& tree, AccessibleRow* row, ui::NodeID node);
void scrollIn(AccessibleTree& tree, AccessibleRow* row, ui::NodeID node);

}  // namespace vemra::qt
