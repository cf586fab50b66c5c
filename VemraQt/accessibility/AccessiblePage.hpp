#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

/// \file
/// The way from Qt's widgets to the page's own accessible objects.

namespace vemra::qt {

class AccessibleTree;

/// Makes Qt use the tree's objects: for the scroll area of its page, whose children they are, and in
/// the place of the widgets on it, whose events speak of the elements they show. Main thread only,
/// after QApplication is made; before Qt is asked for the scroll area's own accessible object.
void addAccessiblePage(AccessibleTree& tree);
/// Nothing reaches the tree any more.
void removeAccessiblePage(AccessibleTree& tree);
/// The tree of the page in that scroll area; nullptr when it is none, or a null pointer.
AccessibleTree* accessibleTreeOf(const QObject* area);

}  // namespace vemra::qt
