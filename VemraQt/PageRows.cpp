// Which rows the page asks for: those near the viewport, and the few that stay wherever they are.

#include "VemraQt/Page.hpp"

#include <algorithm>
#include <ranges>

#include <QAbstractScrollArea>

namespace vemra::qt {

namespace {

// Rows this far beyond the viewport are there already when a small step brings them in.
constexpr int askMargin = 96;
// Rows with a text field keep their widgets, cursor and undo history wherever they are; the so many
// that had the focus last, so that a page full of open fields does not become one full of widgets.
constexpr std::size_t mostPinnedRows = 16;

bool holdsTextField(const RenderNode& row) {
  bool holds = false;
  std::vector<const RenderNode*> pending{&row};
  while (!pending.empty() && !holds) {
    const RenderNode* node = pending.back();
    pending.pop_back();
    holds = node->element.kind() == ui::ElementKind::textField;
    pending.insert(pending.end(), node->children.begin(), node->children.end());
  }
  return holds;
}

/// The same rows in ascending ranges that do not touch.
std::vector<ui::RowRange> joined(std::vector<ui::RowRange> ranges) {
  std::ranges::sort(ranges, {}, &ui::RowRange::first);
  std::vector<ui::RowRange> joined;
  for (const ui::RowRange& range : ranges) {
    if (!joined.empty() && range.first <= joined.back().last) {
      joined.back().last = std::max(joined.back().last, range.last);
    } else {
      joined.push_back(range);
    }
  }
  return joined;
}

/// Whether the rows that are there are exactly those.
bool holdsExactly(const RenderNode& list, const std::vector<ui::RowRange>& ranges) {
  std::size_t row = 0;
  for (const ui::RowRange& range : ranges) {
    for (std::size_t index = range.first; index < range.last; ++index, ++row) {
      if (row == list.children.size() || list.children[row]->rowIndex != index) return false;
    }
  }
  return row == list.children.size();
}

}  // namespace

bool Page::isPinned(const RenderNode& row) const {
  return &row == rowOf(focusedNode()) || holdsTextField(row);
}

std::vector<ui::RowRange> Page::wantedRows(const RenderNode& list) const {
  const page::RowHeights& heights = *list.rows;
  std::vector<ui::RowRange> ranges;
  const std::int64_t from = scroll_ - list.frame.top() - askMargin;
  const std::int64_t to = scroll_ - list.frame.top() + area_.viewport()->height() + askMargin;
  if (heights.count() > 0 && to > 0 && from < heights.total()) {
    ui::RowRange near{heights.rowAt(from), heights.rowAt(to) + 1};
    // What is there already and only a little further away stays.
    for (const RenderNode* row : list.children | std::views::reverse) {
      const std::int64_t top = heights.top(row->rowIndex);
      if (row->rowIndex + 1 == near.first && top > from - keepMargin) --near.first;
    }
    for (const RenderNode* row : list.children) {
      if (row->rowIndex == near.last && heights.top(row->rowIndex) < to + keepMargin) ++near.last;
    }
    ranges.push_back(near);
  }
  const RenderNode* focused = rowOf(focusedNode());
  // Its control takes the focus as soon as the page is at rest.
  const RenderNode* next =
      lostFocus_ && lostFocus_->wasSeen ? rowOf(tree_.find(lostFocus_->within)) : nullptr;
  std::vector<const RenderNode*> pinned;
  for (const RenderNode* row : list.children) {
    if (row->rowIndex >= heights.count()) continue;
    if (row == focused || row == next) ranges.push_back({row->rowIndex, row->rowIndex + 1});
    if (holdsTextField(*row)) pinned.push_back(row);
  }
  std::ranges::sort(pinned, std::ranges::greater(), &RenderNode::focusedAt);
  pinned.resize(std::min(pinned.size(), mostPinnedRows));
  for (const RenderNode* row : pinned) ranges.push_back({row->rowIndex, row->rowIndex + 1});
  return joined(std::move(ranges));
}

bool Page::askForRows() {
  if (RenderNode* row = rowOf(focusedNode())) row->focusedAt = ++focusCount_;
  std::vector<std::pair<ui::NodeID, std::vector<ui::RowRange>>> requests;
  for (const RenderNode* list : tree_.lists()) {
    std::vector<ui::RowRange> wanted = wantedRows(*list);
    if (!holdsExactly(*list, wanted)) requests.emplace_back(list->id, std::move(wanted));
  }
  for (const RenderNode* list : tree_.wholeLists()) {
    // A picker's choices are there by themselves.
    const std::size_t count = list->element.rowCount();
    if (list->children.size() != count) requests.push_back({list->id, {{0, count}}});
  }
  // Not before all have been found: rows that come may bring lists of their own.
  for (auto& [list, ranges] : requests) {
    errors_.attempt([&] { graph_.showRows(list, std::move(ranges)); });
  }
  return !requests.empty();
}

}  // namespace vemra::qt
