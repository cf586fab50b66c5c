#pragma once

#include <vector>

#include <QAccessible>
#include <QTimer>

namespace vemra::qt {

class AccessibleObject;
class AccessibleRow;

/// Objects that stand for nothing any more. They answer like empty ones and are deleted in the next
/// turn of the event loop: a client may be in the middle of a question to one, even of the action
/// that ends it. Main thread only.
class LeavingObjects {
 public:
  LeavingObjects();
  ~LeavingObjects() { deleteAll(); }
  LeavingObjects(const LeavingObjects&) = delete;
  LeavingObjects& operator=(const LeavingObjects&) = delete;

  /// The object leaves, with the choices of a picker.
  void add(AccessibleObject& object);
  /// The row leaves, with the objects of its elements.
  void addRow(AccessibleRow& row);

 private:
  void deleteAll();

  std::vector<QAccessible::Id> objects_;
  QTimer deleting_;
};

}  // namespace vemra::qt
