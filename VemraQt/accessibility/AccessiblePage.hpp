#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

/// \file
/// Connects Qt's widgets with the page's own accessible objects.

namespace vemra::qt {

class AccessibleTree;

/// Makes Qt use the tree's objects: as the children of the page's scroll area, and in place of the
/// page's widgets, whose events are sent for the elements that they show. Main thread only. Call it
/// after QApplication is made and before Qt first asks for the scroll area's accessible object.
void addAccessiblePage(AccessibleTree& tree);
/// Disconnects the tree: Qt and its events no longer reach it.
void removeAccessiblePage(AccessibleTree& tree);
/// The tree of the page in that scroll area; nullptr when `area` is null or has no such page.
AccessibleTree* accessibleTreeOf(const QObject* area);

}  // namespace vemra::qt
