#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

#include <QRect>

/// \file
/// Where rows and elements are on the screen; estimated for those that have no frame now.

namespace vemra::qt {

class AccessibleRow;
class AccessibleTree;

QRect rectOf(AccessibleTree& tree, AccessibleRow& row);
/// \param row The row that the element is in; nullptr outside lists.
QRect rectOf(AccessibleTree& tree, AccessibleRow* row, ui::NodeID node);
bool isInViewport(const AccessibleTree& tree, const QRect& onScreen);

}  // namespace vemra::qt
