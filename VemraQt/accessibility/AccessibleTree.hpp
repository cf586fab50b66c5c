#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraQt/accessibility/Announcements.hpp"
#include "VemraQt/accessibility/IdentifierSearch.hpp"
#include "VemraQt/accessibility/KnownRows.hpp"
#include "VemraQt/accessibility/LeavingObjects.hpp"
#include "VemraQt/accessibility/PageSegments.hpp"

#include <cstdint>
#include <unordered_map>
#include <vector>

#include <QAccessible>
#include <QObject>

class QAbstractScrollArea;

namespace vemra::page {
struct Node;
}  // namespace vemra::page

namespace vemra::qt {

class AccessibleElement;
class AccessibleObject;
class AccessibleRow;
class Page;

/// The whole page as one tree of accessible objects: one for every text and control of every row,
/// with or without a widget.
///
///     page
///       text, button, …           the elements outside lists, in tree order
///       row "Ada"                 a group named by its first text or title
///         button, text, …         its elements, in tree order
///       row "Bo"
///
/// The tree makes an object when a client first asks for it. An element's object lives as long as
/// the element's identity; a row's object lives as long as the row's id is in the list, even while
/// scrolling removes and recreates the row's nodes. For a row without nodes, the tree asks the
/// graph to describe it (`ViewGraph::lookAtRow`). When the element or row of an object goes, the
/// object answers like an empty one and is deleted in the next turn of the event loop. Finding a
/// child or its index examines no other row.
class AccessibleTree final : public QObject {
 public:
  AccessibleTree(QAbstractScrollArea& area, Page& page);
  ~AccessibleTree() override;

  /// \name The page's children: elements and rows @{
  int childCount();
  QAccessibleInterface* child(int index);
  int indexOf(const QAccessibleInterface* object);
  /// @}

  /// The object of a shown element; nullptr when the element is not accessible.
  AccessibleElement* objectOf(const page::Node& leaf);
  /// Whether there may be a client to notify: accessibility is active, or a client has asked this
  /// tree before.
  bool isWatched() const { return hasBeenAsked() || QAccessible::isActive(); }

  /// \name For the objects and the other parts of the tree @{
  IdentifierSearch& identifiers() { return identifiers_; }
  Announcements& announcements() { return announcements_; }
  QAccessibleInterface* pageObject() const;
  QAbstractScrollArea& area() const { return area_; }
  Page& page() const { return page_; }

  /// Updates the tree to the page's current version, and notes added and removed children for
  /// clients.
  void refresh();
  /// Calls `refresh`; also updates the rows of that list while the graph is handling an event.
  void refreshList(ui::NodeID list);
  /// The current children of the page.
  const std::vector<PageSegment>& segments();
  /// The elements of the page (`row` is nullptr) or of a row, updated first.
  std::vector<ElementSlot>& elementsOf(AccessibleRow* row);
  const ElementSlot* slot(AccessibleRow* row, std::uint64_t path);
  AccessibleElement* object(AccessibleRow* row, ElementSlot& slot);
  /// The row's object, made if needed; nullptr when the list has no such row.
  AccessibleRow* rowAt(ui::NodeID list, std::size_t index);
  /// The object of the row with that node; nullptr when no client has asked for the row.
  AccessibleRow* knownRow(ui::NodeID rowNode) const;
  /// Whether rows without nodes may have changed since they were last reported to clients.
  bool hasNewRows(const ui::ListRows& rows) const;
  /// Takes up to `most` known rows that have not been compared since their list changed.
  std::vector<QAccessible::Id> takeUncompared(std::size_t most);
  /// The objects, of those that clients have asked for, whose elements or rows are in or near the
  /// viewport.
  std::vector<AccessibleObject*> knownNearViewport();
  /// The row's node; the graph describes the row if needed. nullptr when the row is gone.
  const ui::Node* nodeOf(AccessibleRow& row);
  const ui::Node* find(ui::NodeID node) const;
  /// @}

 private:
  bool hasBeenAsked() const { return pageVersion_ != neverAsked; }
  void note(AccessibleRow* row, const ChildSteps& steps);

  static constexpr std::uint64_t neverAsked = ~std::uint64_t{0};

  QAbstractScrollArea& area_;
  Page& page_;
  std::uint64_t pageVersion_ = neverAsked;  ///< the page's version at the last refresh
  std::vector<ElementSlot> slots_;
  std::vector<PageSegment> segments_;
  std::unordered_map<ui::NodeID, KnownRows> lists_;
  LeavingObjects leaving_;
  IdentifierSearch identifiers_;
  Announcements announcements_;
};

}  // namespace vemra::qt
