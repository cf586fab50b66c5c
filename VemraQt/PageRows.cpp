#include "VemraQt/PageRows.hpp"

#include "VemraPlatform/page/Node.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "VemraQt/accessibility/AccessiblePage.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>
#include <vector>

#include <QScrollBar>

namespace vemra::qt {
namespace {

Page& pageOf(const ViewWidget& widget) {
  return AccessiblePage::in(&widget)->tree().page();
}

const page::Node* listWith(const Page& page, ui::NodeID list, std::size_t index) {
  const page::Node* const node = page.tree().find(list);
  return node && node->rows && index < node->rows->count() ? node : nullptr;
}

/// The node of a row; nullptr while it has none.
const page::Node* rowNode(const Page& page, ui::NodeID list, std::size_t index) {
  const page::Node* const node = listWith(page, list, index);
  if (!node) return nullptr;
  const auto row = std::ranges::find(node->children(), index, &page::Node::rowIndex);
  return row == node->children().end() ? nullptr : &*row;
}

std::vector<ui::NodeID> leavesOf(const page::Node& row) {
  std::vector<ui::NodeID> leaves;
  page::forEachLeaf(row, [&](const page::Node& leaf) { leaves.push_back(leaf.id); });
  return leaves;
}

/// The lists of the page whose rows are requested by range.
void collectLists(const page::Node& node, std::vector<const page::Node*>& lists) {
  if (node.rows) {
    lists.push_back(&node);
    return;
  }
  for (const page::Node& child : node.children()) collectLists(child, lists);
}

}  // namespace

bool revealRow(ViewWidget& widget, ui::NodeID list, std::size_t index) {
  Page& page = pageOf(widget);
  if (!listWith(page, list, index)) return false;
  page.bringRow(list, index);
  const page::Node* const row = rowNode(page, list, index);
  if (!row) return true;  // the page is changing; it has scrolled as far as the row's estimate
  const std::vector<ui::NodeID> leaves = leavesOf(*row);
  // The last one first: of a row that does not fit, the beginning is to be seen.
  if (!leaves.empty()) {
    if (const page::Node* last = page.tree().find(leaves.back())) page.reveal(*last);
    if (const page::Node* first = page.tree().find(leaves.front())) page.reveal(*first);
  }
  return true;
}

bool focusRow(ViewWidget& widget, ui::NodeID list, std::size_t index) {
  if (!revealRow(widget, list, index)) return false;
  Page& page = pageOf(widget);
  const page::Node* const row = rowNode(page, list, index);
  if (!row) return true;
  const ui::NodeID id = row->id;
  for (const ui::NodeID leaf : leavesOf(*row)) {
    if (page.focusElement(leaf, Qt::OtherFocusReason)) return true;
  }
  page.focusInPlace(id, {});
  return true;
}

QRect rowFrame(const ViewWidget& widget, ui::NodeID list, std::size_t index) {
  const Page& page = pageOf(widget);
  const page::Node* const node = listWith(page, list, index);
  if (!node) return {};
  return page.rowFrameOnPage(*node, index).translated(0, -page.scrollPosition());
}

std::optional<std::size_t> rowAtTop(const ViewWidget& widget, ui::NodeID list) {
  const Page& page = pageOf(widget);
  const page::Node* const node = listWith(page, list, 0);
  if (!node) return std::nullopt;
  const int above = page.scrollPosition() - page.rowFrameOnPage(*node, 0).top();
  return above <= 0 ? 0 : std::min(node->rows->rowAt(above), node->rows->count() - 1);
}

ReadingPlace readingPlace(const ViewWidget& widget) {
  const Page& page = pageOf(widget);
  ReadingPlace place;
  place.scroll = page.scrollPosition();
  std::vector<const page::Node*> lists;
  if (page.tree().root()) collectLists(*page.tree().root(), lists);
  for (const page::Node* list : lists) {
    const auto index = rowAtTop(widget, list->id);
    if (!index) continue;
    const QRect frame = page.rowFrameOnPage(*list, *index);
    if (frame.top() > place.scroll || frame.bottom() < place.scroll) continue;
    place.top = ReadingPlace::Row{list->id, *index};
    place.offset = place.scroll - frame.top();
  }
  const page::Node* const focused = page.focusedNode();
  if (!focused) return place;
  place.focus = focused->id;
  for (const page::Node* node = focused; node; node = node->parent) {
    if (!node->isWindowedRow()) continue;
    place.focusRow = ReadingPlace::Row{node->parent->id, node->rowIndex};
    const std::vector<ui::NodeID> leaves = leavesOf(*node);
    place.controlInRow =
        static_cast<std::size_t>(std::ranges::find(leaves, focused->id) - leaves.begin());
  }
  return place;
}

bool returnFocusTo(ViewWidget& widget, const ReadingPlace& place) {
  Page& page = pageOf(widget);
  if (place.focus && page.focusElement(place.focus, Qt::OtherFocusReason)) {
    page.scrollIn(place.focus);
    return true;
  }
  if (!place.focusRow || !revealRow(widget, place.focusRow->list, place.focusRow->index)) {
    return false;
  }
  const page::Node* const row = rowNode(page, place.focusRow->list, place.focusRow->index);
  const std::vector<ui::NodeID> leaves = row ? leavesOf(*row) : std::vector<ui::NodeID>();
  return (place.controlInRow < leaves.size() &&
          page.focusElement(leaves[place.controlInRow], Qt::OtherFocusReason)) ||
         focusRow(widget, place.focusRow->list, place.focusRow->index);
}

void returnTo(ViewWidget& widget, const ReadingPlace& place) {
  returnFocusTo(widget, place);
  QScrollBar& bar = *widget.verticalScrollBar();
  if (!place.top) {
    bar.setValue(place.scroll);
    return;
  }
  for (int round = 0; round < 3; ++round) {  // the rows above are an estimate at first
    const QRect frame = rowFrame(widget, place.top->list, place.top->index);
    bar.setValue(bar.value() + frame.top() + place.offset);
  }
}

}  // namespace vemra::qt
