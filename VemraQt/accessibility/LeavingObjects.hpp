#pragma once

#include <vector>

#include <QAccessible>
#include <QTimer>

namespace vemra::qt {

class AccessibleObject;
class AccessibleRow;

/// Objects whose row or element is gone. They answer like empty objects and are deleted in the next
/// turn of the event loop, because a client may be calling one of them right now: even its action
/// may be what removes it. Main thread only.
class LeavingObjects {
 public:
  LeavingObjects();
  ~LeavingObjects() { deleteAll(); }
  LeavingObjects(const LeavingObjects&) = delete;
  LeavingObjects& operator=(const LeavingObjects&) = delete;

  /// Takes an object, together with the choices of a picker.
  void add(AccessibleObject& object);
  /// Takes a row, together with the objects of its elements.
  void addRow(AccessibleRow& row);
  /// Deletes the objects now. From Qt 6.11 on, Qt reports each of them to clients, which may then ask
  /// those that are left.
  void deleteAll();

 private:
  std::vector<QAccessible::Id> objects_;
  QTimer deleting_;
};

}  // namespace vemra::qt
