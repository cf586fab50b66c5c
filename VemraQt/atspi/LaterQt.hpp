#pragma once

#include <QAccessible>
#include <QAccessibleInterface>
#include <QList>
#include <QtGlobal>

/// \file
/// The parts of Qt's accessibility that only a later version than the oldest supported one (6.4)
/// has, so that no other file here checks the version. Remove it once Qt 6.9 is the oldest
/// supported version. Clients on the bus have tried the branches for 6.5 with Qt 6.8.2, and those
/// for 6.9 with Qt 6.11.2.

namespace vemra::qt::atspi {

/// Whether Qt itself publishes `Selection` on the bus.
inline constexpr bool qtPublishesSelections = QT_VERSION >= QT_VERSION_CHECK(6, 5, 0);
/// Whether Qt itself sends `selection-changed`: measured with 6.8 and 6.11, not with 6.5 to 6.7.
inline constexpr bool qtSendsSelectionChanged = QT_VERSION >= QT_VERSION_CHECK(6, 8, 0);
/// Whether Qt asks an object for its identifier.
inline constexpr bool qtPublishesIdentifiers = QT_VERSION >= QT_VERSION_CHECK(6, 9, 0);

#if QT_VERSION >= QT_VERSION_CHECK(6, 9, 0)
inline bool asksForIdentifier(QAccessible::Text kind) {
  return kind == QAccessible::Identifier;
}
#else
inline bool asksForIdentifier(QAccessible::Text) {
  return false;
}
#endif

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)

using SelectionInterface = QAccessibleSelectionInterface;

inline bool asksForSelection(QAccessible::InterfaceType type) {
  return type == QAccessible::SelectionInterface;
}

#else

/// The selected children of an object: the interface that Qt has from 6.5 on, with the same names.
class SelectionInterface {
 public:
  virtual ~SelectionInterface() = default;
  virtual int selectedItemCount() const = 0;
  virtual QList<QAccessibleInterface*> selectedItems() const = 0;
  virtual bool isSelected(QAccessibleInterface* child) const {
    return selectedItems().contains(child);
  }
  /// The following functions return whether they changed the selection.
  virtual bool select(QAccessibleInterface* child) = 0;
  virtual bool unselect(QAccessibleInterface* child) = 0;
  virtual bool selectAll() = 0;
  virtual bool clear() = 0;
};

inline bool asksForSelection(QAccessible::InterfaceType) {
  return false;
}

#endif

}  // namespace vemra::qt::atspi
