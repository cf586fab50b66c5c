#include "VemraQt/accessibility/ObjectPlaces.hpp"

#include "VemraQt/accessibility/AccessibleObjects.hpp"
#include "VemraQt/accessibility/AccessibleTree.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>

#include <QAbstractScrollArea>

namespace vemra::qt {

namespace {

QRect onScreen(const QAbstractScrollArea& area, const QRect& onPage, int scroll) {
  return QRect(area.viewport()->mapToGlobal(onPage.topLeft() - QPoint(0, scroll)), onPage.size());
}

}  // namespace

QRect rectOf(AccessibleTree& tree, AccessibleRow& row) {
  tree.refreshList(row.list);
  const Page& page = tree.page();
  const page::Node* list = page.tree().find(row.list);
  if (!list) return QRect();
  if (!list->rows) {  // a list that is not windowed has no frames for its rows
    const ui::Node* node = tree.nodeOf(row);
    const page::Node* shown = node ? page.tree().find(node->id) : nullptr;
    QRect whole;
    if (shown) {
      forEachLeaf(*shown, [&](const page::Node& leaf) { whole |= page.frameOnPage(leaf); });
    }
    return onScreen(tree.area(), whole, page.scrollPosition());
  }
  if (row.index >= list->rows->count()) return QRect();
  return onScreen(tree.area(), page.rowFrameOnPage(*list, row.index), page.scrollPosition());
}

QRect rectOf(AccessibleTree& tree, AccessibleRow* row, ui::NodeID node) {
  const Page& page = tree.page();
  const page::Node* leaf = page.tree().find(node);
  if (leaf && leaf->measuredWidth >= 0) {
    return onScreen(tree.area(), page.frameOnPage(*leaf), page.scrollPosition());
  }
  if (!row) return QRect();
  // The element is not laid out: give it an even share of its row, in order.
  const QRect whole = rectOf(tree, *row);
  const auto& elements = tree.elementsOf(row);
  const auto place = std::ranges::find(elements, node, &ElementSlot::node) - elements.begin();
  const int count = std::max(1, static_cast<int>(elements.size()));
  const int height = std::max(1, whole.height() / count);
  return QRect(whole.x(), whole.y() + static_cast<int>(place) * height, whole.width(), height);
}

bool isInViewport(const AccessibleTree& tree, const QRect& rect) {
  const QWidget& viewport = *tree.area().viewport();
  const QRect visible(viewport.mapToGlobal(QPoint(0, 0)), viewport.size());
  return visible.intersects(rect);
}

}  // namespace vemra::qt
