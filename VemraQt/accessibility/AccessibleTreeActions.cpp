// What objects of the tree do and where they stand.

#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>

#include <QAbstractScrollArea>

namespace vemra::qt {

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
  const page::Node* list = page_.tree().find(row.list);
  if (!list) return QRect();
  if (!list->rows) {  // a list that is never windowed has no frames for its rows
    const ui::Node* node = nodeOf(row);
    const page::Node* shown = node ? page_.tree().find(node->id) : nullptr;
    QRect whole;
    if (shown)
      forEachLeaf(*shown, [&](const page::Node& leaf) { whole |= page_.frameOnPage(leaf); });
    return onScreen(area_, whole, page_.scrollPosition());
  }
  if (row.index >= list->rows->count()) return QRect();
  return onScreen(area_, page_.rowFrameOnPage(*list, row.index), page_.scrollPosition());
}

QRect AccessibleTree::rectOf(AccessibleRow* row, NodeID node) {
  const page::Node* leaf = page_.tree().find(node);
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
  if (!page_.focusElement(node, Qt::OtherFocusReason)) scrollIn(row, node);
}

void AccessibleTree::scrollIn(AccessibleRow* row, NodeID node) {
  if (row && !page_.tree().find(node)) page_.bringRow(row->list, row->index);
  if (const page::Node* leaf = page_.tree().find(node)) page_.reveal(*leaf);
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
  const QAccessible::Id id = row->id();
  page_.deliver(pressed, ui::Press{});
  // Whoever was pressed may have turned the event loop: the row is asked for anew.
  row = dynamic_cast<AccessibleRow*>(AccessibleObject::living(id));
  if (!row || find(pressed)) return;
  refreshList(row->list);
  if (row->isLeaving()) return;
  for (const Place& place : places) {
    if (!find(place.within)) continue;
    page_.bringRow(row->list, row->index);
    page_.focusInPlace(place.within, place.after);
    return;
  }
}

}  // namespace vemra::qt
