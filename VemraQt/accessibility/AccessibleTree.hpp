#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraQt/accessibility/KnownRows.hpp"
#include "VemraQt/accessibility/LeavingObjects.hpp"
#include "VemraQt/accessibility/ObjectHost.hpp"
#include "VemraQt/accessibility/PageOutline.hpp"
#include "VemraQt/atspi/ChildSignals.hpp"

#include <cstdint>
#include <unordered_map>
#include <utility>
#include <vector>

#include <QAccessible>
#include <QObject>

namespace vemra::page {
struct Node;
}  // namespace vemra::page

namespace vemra::qt {

/// The whole page as one tree of accessible objects: one for every text and control of every row,
/// with or without a widget.
///
///     page
///       heading, text, button, …    the elements outside lists, in tree order
///       section "People"            a stack that begins with a headline: a group with its name
///         heading, text, …          the elements of the section, in tree order
///         list
///           row "Ada"               a list item named by its first text or title
///             button, text, …       its elements, in tree order
///           row "Bo"
///
/// The tree makes an object when a client first asks for it. An element's object lives as long as
/// the element's identity; a row's object lives as long as the row's id is in the list, even while
/// scrolling removes and recreates the row's nodes. For a row without nodes, the tree asks the
/// graph to describe it (`ViewGraph::peekRow`). When the element or row of an object goes, the
/// object answers like an empty one and is deleted in the next turn of the event loop. Finding a
/// child or its index examines no other row.
class AccessibleTree final : public QObject, public ObjectHost {
 public:
  AccessibleTree(QAbstractScrollArea& area, Page& page);
  ~AccessibleTree() override;

  /// The object of a shown element; nullptr when the element is not accessible.
  AccessibleObject* objectOf(const page::Node& leaf);
  /// The text of the first title on the page, outside lists; "" without one.
  QString title();
  /// Whether there may be a client to notify: accessibility is active, or a client has asked this
  /// tree before.
  bool isWatched() const { return hasBeenAsked() || QAccessible::isActive(); }

  /// \name For the objects, the announcements and the search for identifiers @{
  /// Updates the tree to the page's current version, and notes added and removed children for
  /// clients.
  void refresh();
  void refreshList(ui::NodeID list) override;
  int childCountOf(std::uint64_t section) override;
  QAccessibleInterface* childOf(std::uint64_t section, int index) override;
  int indexIn(std::uint64_t section, const QAccessibleInterface* object) override;
  QAccessibleInterface* sectionAround(std::uint64_t path) override;
  QString identifierAt(std::uint64_t path) override;
  QAccessibleInterface* listObject(ui::NodeID list) override;
  std::vector<ElementSlot>& elementsOf(AccessibleRow* row) override;
  AccessibleObject* object(AccessibleRow* row, ElementSlot& slot) override;
  AccessibleRow* rowAt(ui::NodeID list, std::size_t index) override;
  /// The object of the row with that node; nullptr when no client has asked for the row.
  AccessibleRow* knownRow(ui::NodeID rowNode) const;
  /// Whether rows without nodes may have changed since they were last reported to clients.
  bool hasNewRows(const ui::ListRows& rows) const;
  /// Takes up to `most` known rows that have not been compared since their list changed.
  std::vector<QAccessible::Id> takeUncompared(std::size_t most);
  /// The objects, of those that clients have asked for, whose elements or rows are in or near the
  /// viewport.
  std::vector<AccessibleObject*> knownNearViewport();
  const ui::Node* nodeOf(AccessibleRow& row) override;
  void noteShowing(AccessibleObject& object, bool isShowing) override;
  /// The objects last reported to clients as visible; the caller removes those that it reports as
  /// hidden, or that are gone.
  std::vector<QAccessible::Id>& shownObjects() { return showing_; }
  /// Takes the added and removed children that have not been announced.
  std::vector<atspi::ChildChange> takeChildChanges() { return std::exchange(childChanges_, {}); }
  /// @}

 private:
  bool hasBeenAsked() const { return pageVersion_ != neverAsked; }
  void noteInRow(AccessibleRow& row, const ChildSteps& steps);
  void noteInList(ui::NodeID list, const ChildSteps& steps);
  void noteInSection(std::uint64_t path, const ChildSteps& steps);
  template <class ChildAt>
  void note(QAccessible::Id parent, const ChildSteps& steps, ChildAt childAt);

  bool hasEnded_ = false;  ///< the objects that are left answer like empty ones
  static constexpr std::uint64_t neverAsked = ~std::uint64_t{0};

  std::uint64_t pageVersion_ = neverAsked;  ///< the page's version at the last refresh
  std::vector<ElementSlot> slots_;
  PageOutline outline_;
  std::unordered_map<ui::NodeID, KnownRows> lists_;
  LeavingObjects leaving_;
  std::vector<atspi::ChildChange> childChanges_;
  std::vector<QAccessible::Id> showing_;
};

}  // namespace vemra::qt
