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

/// The whole page as one tree of accessible objects: every text and control of every row, whether
/// or not it has a widget just now.
///
///     page
///       text, button, …           the elements outside lists, in tree order
///       row "Ada"                 a group named by its first text or title
///         button, text, …         its elements, in tree order
///       row "Bo"
///
/// Objects are made when somebody asks for them and last as long as what they stand for: an element
/// by its identity, a row by its id, also while its nodes come and go with scrolling. A row without
/// nodes is described for a look (`ViewGraph::lookAtRow`). What an object stands for may go at any
/// moment; from then on the object answers like an empty one, and is deleted with the next turn of
/// the event loop. Finding a child or its index looks at no other row.
class AccessibleTree final : public QObject {
 public:
  AccessibleTree(QAbstractScrollArea& area, Page& page);
  ~AccessibleTree() override;

  /// \name The page's children: elements and rows @{
  int childCount();
  QAccessibleInterface* child(int index);
  int indexOf(const QAccessibleInterface* object);
  /// @}

  /// The object of an element that is shown; nullptr when it is no accessible element.
  AccessibleElement* objectOf(const page::Node& leaf);
  /// Whether a client may be there to notify: one on the bus, or one that has asked before.
  bool isWatched() const { return hasBeenAsked() || QAccessible::isActive(); }

  /// \name For the objects and the other parts of the tree @{
  IdentifierSearch& identifiers() { return identifiers_; }
  Announcements& announcements() { return announcements_; }
  QAccessibleInterface* pageObject() const;
  QAbstractScrollArea& area() const { return area_; }
  Page& page() const { return page_; }

  /// Brings the tree up to date with the page, and notes for clients what came and went.
  void refresh();
  /// The same, and the rows of that list also while the graph is at work.
  void refreshList(ui::NodeID list);
  /// The page's children as of now.
  const std::vector<PageSegment>& segments();
  /// The slots of the page (no row), or of a row; up to date.
  std::vector<ElementSlot>& elementsOf(AccessibleRow* row);
  const ElementSlot* slot(AccessibleRow* row, std::uint64_t path);
  AccessibleElement* object(AccessibleRow* row, ElementSlot& slot);
  /// Makes the row's object when there is none; nullptr when there is no such row.
  AccessibleRow* rowAt(ui::NodeID list, std::size_t index);
  /// The object of a row of the page; nullptr when no client has asked for it.
  AccessibleRow* knownRow(ui::NodeID rowNode) const;
  /// Whether rows without nodes may be others than clients have heard.
  bool hasNewRows(const ui::ListRows& rows) const;
  /// Some of the rows that may be others than clients have heard.
  std::vector<QAccessible::Id> takeUncompared(std::size_t most);
  /// The objects that somebody has asked for, of what is in or near the viewport.
  std::vector<AccessibleObject*> knownNearViewport();
  /// The row's node, described for a look if need be; nullptr when the row is gone.
  const ui::Node* nodeOf(AccessibleRow& row);
  const ui::Node* find(ui::NodeID node) const;
  /// @}

 private:
  bool hasBeenAsked() const { return pageVersion_ != neverAsked; }
  void note(AccessibleRow* row, const ChildSteps& steps);

  static constexpr std::uint64_t neverAsked = ~std::uint64_t{0};

  QAbstractScrollArea& area_;
  Page& page_;
  std::uint64_t pageVersion_ = neverAsked;  ///< of the page that the tree was last right for
  std::vector<ElementSlot> slots_;
  std::vector<PageSegment> segments_;
  std::unordered_map<ui::NodeID, KnownRows> lists_;
  LeavingObjects leaving_;
  IdentifierSearch identifiers_;
  Announcements announcements_;
};

}  // namespace vemra::qt
