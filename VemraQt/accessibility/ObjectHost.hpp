#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

#include <vector>

#include <QRect>

QT_BEGIN_NAMESPACE
class QAbstractScrollArea;
class QAccessibleInterface;
QT_END_NAMESPACE

namespace vemra::ui {
struct Node;
}  // namespace vemra::ui

namespace vemra::qt {

class AccessibleObject;
class AccessibleRow;
class Page;
struct ElementSlot;

/// The functions of the tree that its accessible objects call. Main thread only.
class ObjectHost {
 public:
  ObjectHost(const ObjectHost&) = delete;
  ObjectHost& operator=(const ObjectHost&) = delete;

  QAbstractScrollArea& area() const { return area_; }
  Page& page() const { return page_; }
  /// The accessible object of the page, the parent of its rows and of the elements outside lists.
  QAccessibleInterface* pageObject() const;
  const ui::Node* find(ui::NodeID node) const;
  /// Converts a rectangle on the page to one on the screen.
  QRect onScreen(const QRect& onPage) const;
  bool isInViewport(const QRect& onScreen) const;

  /// The elements of the page (`row` is nullptr) or of a row, updated first.
  virtual std::vector<ElementSlot>& elementsOf(AccessibleRow* row) = 0;
  /// The object of an element, made if needed.
  virtual AccessibleObject* object(AccessibleRow* row, ElementSlot& slot) = 0;
  /// The row's node; the graph describes the row if needed. nullptr when the row is gone.
  virtual const ui::Node* nodeOf(AccessibleRow& row) = 0;
  /// Updates the tree, and the rows of that list also while the graph is handling an event.
  virtual void refreshList(ui::NodeID list) = 0;
  /// Records that a client has asked whether the object is visible, so that later changes are
  /// announced.
  virtual void noteShowing(AccessibleObject& object, bool isShowing) = 0;

 protected:
  ObjectHost(QAbstractScrollArea& area, Page& page) : area_(area), page_(page) {}
  ~ObjectHost() = default;

 private:
  QAbstractScrollArea& area_;
  Page& page_;
};

}  // namespace vemra::qt
