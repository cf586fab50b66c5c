#pragma once

#include <QAccessible>
#include <QAccessibleInterface>
#include <QList>
#include <QtGlobal>

/// \file
/// What Qt's accessibility has only from a later version than the oldest one supported (6.4), so
/// that nothing else here asks for the version. Not needed once Qt 6.9 is the oldest one supported.
/// The later branches have not been compiled yet.

namespace vemra::qt::atspi {

/// Whether Qt puts `Selection` on the bus itself.
inline constexpr bool qtPublishesSelections = QT_VERSION >= QT_VERSION_CHECK(6, 5, 0);
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

/// What is chosen among an object's children: what Qt asks from 6.5 on, with its names.
class SelectionInterface {
 public:
  virtual ~SelectionInterface() = default;
  virtual int selectedItemCount() const = 0;
  virtual QList<QAccessibleInterface*> selectedItems() const = 0;
  virtual bool isSelected(QAccessibleInterface* child) const {
    return selectedItems().contains(child);
  }
  /// The others answer whether it has been done.
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
