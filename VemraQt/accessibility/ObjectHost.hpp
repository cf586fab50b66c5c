#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

#include <QRect>
#include <QString>

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

  /// \name The elements, lists and sections outside lists; the path 0 stands for the page @{
  virtual int childCountOf(std::uint64_t section) = 0;
  virtual QAccessibleInterface* childOf(std::uint64_t section, int index) = 0;
  /// -1 when the object is not directly in the section.
  virtual int indexIn(std::uint64_t section, const QAccessibleInterface* object) = 0;
  /// The object of the section around a path: the page when there is none, or no such path.
  virtual QAccessibleInterface* sectionAround(std::uint64_t path) = 0;
  /// The accessibility identifier at a path; "" when there is none.
  virtual QString identifierAt(std::uint64_t path) = 0;
  /// @}

  /// The row's object, made if needed; nullptr when the list has no such row.
  virtual AccessibleRow* rowAt(ui::NodeID list, std::size_t index) = 0;
  /// The object of a list; the page's when there is no such list.
  virtual QAccessibleInterface* listObject(ui::NodeID list) = 0;
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
