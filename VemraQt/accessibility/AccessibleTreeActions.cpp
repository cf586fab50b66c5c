// What objects of the tree do and where they stand, and what clients are told of.

#include "VemraQt/Page.hpp"
#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"

#include <algorithm>

#include <QAbstractScrollArea>
#include <QLineEdit>

namespace vemra::qt {

using ui::ElementKind;
using ui::NodeID;

QAccessibleInterface* AccessibleTree::pageObject() const {
  return QAccessible::queryAccessibleInterface(&area_);
}

namespace {

QRect onScreen(const QAbstractScrollArea& area, const QRect& onPage, int scroll) {
  return QRect(area.viewport()->mapToGlobal(onPage.topLeft() - QPoint(0, scroll)), onPage.size());
}

}  // namespace

QRect AccessibleTree::rectOf(AccessibleRow& row) {
  refreshList(row.list);
  const RenderNode* list = page_.tree().find(row.list);
  if (!list) return QRect();
  if (!list->rows) {  // a list that is never windowed has no frames for its rows
    const ui::Node* node = nodeOf(row);
    RenderNode* shown = node ? page_.tree().find(node->id) : nullptr;
    QRect whole;
    if (shown) forEachLeaf(*shown, [&](RenderNode& leaf) { whole |= page_.frameOnPage(leaf); });
    return onScreen(area_, whole, page_.scrollPosition());
  }
  if (row.index >= list->rows->count()) return QRect();
  return onScreen(area_, page_.rowFrameOnPage(*list, row.index), page_.scrollPosition());
}

QRect AccessibleTree::rectOf(AccessibleRow* row, NodeID node) {
  const RenderNode* leaf = page_.tree().find(node);
  if (leaf && leaf->measuredWidth >= 0) {
    return onScreen(area_, page_.frameOnPage(*leaf), page_.scrollPosition());
  }
  if (!row) return QRect();
  // Not laid out: an even share of the row, in order.
  const QRect whole = rectOf(*row);
  const auto& elements = elementsOf(row);
  const auto place = std::ranges::find(elements, node, &ElementSlot::node) - elements.begin();
  const int count = std::max(1, static_cast<int>(elements.size()));
  const int height = std::max(1, whole.height() / count);
  return QRect(whole.x(), whole.y() + static_cast<int>(place) * height, whole.width(), height);
}

bool AccessibleTree::isInViewport(const QRect& rect) const {
  const QRect page(area_.viewport()->mapToGlobal(QPoint(0, 0)), area_.viewport()->size());
  return page.intersects(rect);
}

void AccessibleTree::deliver(NodeID node, ui::Event event) {
  page_.deliver(node, std::move(event));
}

void AccessibleTree::focus(AccessibleRow* row, NodeID node) {
  if (row && !page_.tree().find(node)) page_.bringRow(row->list, row->index);
  page_.focusElement(node, Qt::OtherFocusReason);
}

/// Where the pressed element is drawn, the page itself hands the focus on to what takes its place.
/// Where it is not, its row is brought in for that.
void AccessibleTree::press(AccessibleRow* row, NodeID pressed) {
  if (!row || page_.tree().find(pressed)) {
    page_.deliver(pressed, ui::Press{});
    return;
  }
  struct Place {
    NodeID within, after;
  };
  std::vector<Place> places;
  for (const ui::Node* node = find(pressed); node && !node->isRow; node = node->parent) {
    const auto& siblings = node->parent->children;
    const auto self = std::ranges::find(siblings, node);
    const NodeID before =
        self == siblings.begin() || self == siblings.end() ? NodeID{} : (*std::prev(self))->id;
    places.push_back({node->parent->id, before});
  }
  page_.deliver(pressed, ui::Press{});
  if (find(pressed) || row->isLeaving()) return;
  refreshList(row->list);
  if (row->isLeaving()) return;
  for (const Place& place : places) {
    if (!find(place.within)) continue;
    page_.bringRow(row->list, row->index);
    page_.focusInPlace(place.within, place.after);
    return;
  }
}

void AccessibleTree::childrenChanged(const RenderNode& parent) {
  if (!isWatched()) return;
  if (const ui::Node* row = rowHolding(parent.id)) changedRows_.push_back(row->id);
}

void AccessibleTree::elementUpdated(const RenderNode& node) {
  if (node.isLeaf() && isWatched()) updated_.push_back(node.id);
}

void AccessibleTree::announce() {
  if (!isWatched()) return;
  refreshPage();
  std::ranges::sort(changedRows_);
  const auto same = std::ranges::unique(changedRows_);
  changedRows_.erase(same.begin(), same.end());
  for (const NodeID changed : std::exchange(changedRows_, {})) {
    if (AccessibleRow* row = knownRow(changed)) elementsOf(row);
  }
  for (const ChildChange& change : std::exchange(childChanges_, {})) tell(change);
  for (const NodeID updated : std::exchange(updated_, {})) announceUpdate(updated);
}

namespace {

/// The object of that id, as long as it stands for something.
QAccessibleInterface* living(QAccessible::Id id) {
  QAccessibleInterface* interface = id ? QAccessible::accessibleInterface(id) : nullptr;
  const auto* object = dynamic_cast<AccessibleObject*>(interface);
  return object && object->isLeaving() ? nullptr : interface;
}

}  // namespace

/// Whoever was told of what was before may have made any of them go.
void AccessibleTree::tell(const ChildChange& change) const {
  using Kind = ChildChange::Kind;
  QAccessibleInterface* parent = change.parent ? living(change.parent) : pageObject();
  if (!parent) return;
  const QAccessible::Id parentID = QAccessible::uniqueId(parent);
  ChildChange told = change;
  if (change.kind != Kind::removed && !living(change.child)) told.child = 0;
  if (sendsChildSignals()) sendChildSignal(parentID, told);
  // Of an unlisted change there is no event: Qt 6.4 would make one of every child there is.
  if (!told.child || change.kind == Kind::unlisted) return;
  QAccessibleInterface* child = QAccessible::accessibleInterface(told.child);
  if (!child) return;
  QAccessibleEvent event(child, change.kind == Kind::added ? QAccessible::ObjectCreated
                                                           : QAccessible::ObjectDestroyed);
  QAccessible::updateAccessibility(&event);
}

AccessibleElement* AccessibleTree::knownObject(NodeID node, ElementSlot** its) {
  const ui::Node* rowNode = rowHolding(node);
  AccessibleRow* row = rowNode ? knownRow(rowNode->id) : nullptr;
  if (rowNode && !row) return nullptr;
  for (ElementSlot& slot : elementsOf(row)) {
    if (slot.node != node) continue;
    if (its) *its = &slot;
    return slot.object;
  }
  return nullptr;
}

void AccessibleTree::announceUpdate(NodeID node) {
  ElementSlot* slot = nullptr;
  AccessibleElement* object = knownObject(node, &slot);
  if (!object) return;
  const ui::Element& element = find(node)->element;
  const ElementKind kind = element.kind();
  const bool wasEnabled = std::exchange(slot->enabled, element.style().enabled);
  const std::size_t wasShown = std::exchange(slot->shown, hashOfShown(element));
  const bool enabled = wasEnabled != slot->enabled, shown = wasShown != slot->shown;
  // From here on a client that is told may change anything.
  const QAccessible::Id id = object->id();
  if (enabled) {
    QAccessible::State changed;
    changed.disabled = true;
    QAccessibleStateChangeEvent event(object, changed);
    QAccessible::updateAccessibility(&event);
  }
  // What is typed into a field is told by its widget, or by what sets it.
  QAccessibleInterface* still = QAccessible::accessibleInterface(id);
  if (!shown || !still || kind == ElementKind::textField) return;
  if (kind == ElementKind::picker) {
    QAccessibleValueChangeEvent event(still, still->text(QAccessible::Value));
    QAccessible::updateAccessibility(&event);
  } else {
    QAccessibleEvent event(still, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
  }
}

void AccessibleTree::focusMoved(NodeID node) {
  const RenderNode* leaf = page_.tree().find(node);
  AccessibleElement* object = leaf ? objectOf(*leaf) : nullptr;
  if (!object) return;
  QAccessibleEvent event(object, QAccessible::Focus);
  QAccessible::updateAccessibility(&event);
}

}  // namespace vemra::qt
