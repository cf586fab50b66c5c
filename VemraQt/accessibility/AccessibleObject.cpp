#include "VemraQt/accessibility/AccessibleObject.hpp"

namespace vemra::qt {

QAccessibleInterface* AccessibleObject::childAt(int x, int y) const {
  for (int i = 0; i < childCount(); ++i) {
    QAccessibleInterface* found = child(i);
    if (found && found->rect().contains(x, y)) return found;
  }
  return nullptr;
}

AccessibleObject* AccessibleObject::living(QAccessible::Id id) {
  auto* object =
      id ? dynamic_cast<AccessibleObject*>(QAccessible::accessibleInterface(id)) : nullptr;
  return object && !object->leaving_ ? object : nullptr;
}

}  // namespace vemra::qt
