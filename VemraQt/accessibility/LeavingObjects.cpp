#include "VemraQt/accessibility/LeavingObjects.hpp"

#include "VemraQt/accessibility/AccessibleRow.hpp"

#include <utility>

namespace vemra::qt {

LeavingObjects::LeavingObjects() {
  deleting_.setSingleShot(true);
  deleting_.setInterval(0);
  QObject::connect(&deleting_, &QTimer::timeout, &deleting_, [this] { deleteAll(); });
}

void LeavingObjects::add(AccessibleObject& object) {
  if (object.isLeaving()) return;
  object.leave();
  for (AccessibleObject* own : object.ownObjects()) add(*own);
  objects_.push_back(object.id());
  deleting_.start();
}

void LeavingObjects::addRow(AccessibleRow& row) {
  for (ElementSlot& slot : row.known) {
    if (slot.object) add(*slot.object);
  }
  row.known.clear();
  add(row);
}

void LeavingObjects::deleteAll() {
  for (const QAccessible::Id id : std::exchange(objects_, {})) {
    QAccessible::deleteAccessibleInterface(id);
  }
}

}  // namespace vemra::qt
