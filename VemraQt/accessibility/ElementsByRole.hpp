#pragma once

#include "VemraQt/atspi/IdentifierSource.hpp"

#include <QAccessible>
#include <QList>

namespace vemra::qt {

class AccessibleTree;

/// The elements, rows and choices of a page with a sought role, in tree order, in rows with nodes
/// or without. Describes every row, if elements in rows are sought, and makes objects only for
/// those that it finds. None while the page is hidden. Main thread only.
QList<QAccessible::Id> elementsByRole(AccessibleTree& tree, const atspi::RoleTest& isSought);

}  // namespace vemra::qt
