#include "VemraPlatform/page/WantedRows.hpp"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <ranges>
#include <utility>

namespace vemra::page {

using ui::RowRange;

namespace {

// Beyond this number, rows with a text field are removed like other rows, so that a page full of
// open fields does not keep a widget for each of them.
constexpr std::size_t mostRowsWithField = 16;

bool holdsTextField(const Node& row) {
  bool holds = false;
  std::vector<const Node*> pending{&row};
  while (!pending.empty() && !holds) {
    const Node* const node = pending.back();
    pending.pop_back();
    holds = node->element.kind() == ui::ElementKind::textField;
    for (const Node& child : node->children()) pending.push_back(&child);
  }
  return holds;
}

/// The same rows as ascending ranges that do not touch.
std::vector<RowRange> joined(std::vector<RowRange> ranges) {
  std::ranges::sort(ranges, {}, &RowRange::first);
  std::vector<RowRange> joined;
  for (const RowRange& range : ranges) {
    if (!joined.empty() && range.first <= joined.back().last) {
      joined.back().last = std::max(joined.back().last, range.last);
    } else {
      joined.push_back(range);
    }
  }
  return joined;
}

/// Whether the list's children are exactly these rows.
bool holdsExactly(const Node& list, const std::vector<RowRange>& ranges) {
  const Node* row = list.firstChild;
  for (const RowRange& range : ranges) {
    for (std::size_t index = range.first; index < range.last; ++index, row = row->next) {
      if (!row || row->rowIndex != index) return false;
    }
  }
  return !row;
}

}  // namespace

bool isPinned(const Node& row, const PinnedRows& pinned) {
  return &row == pinned.focused || holdsTextField(row);
}

std::vector<RowRange> wantedRows(const Node& list, const Viewport& viewport, const Margins& margins,
                                 const PinnedRows& pinned) {
  const RowHeights& heights = *list.rows;
  std::vector<RowRange> ranges;
  const std::int64_t from = viewport.position - list.frame.y - margins.ask;
  const std::int64_t to = viewport.position - list.frame.y + viewport.height + margins.ask;
  if (heights.count() > 0 && to > 0 && from < heights.total()) {
    RowRange near{heights.rowAt(from), heights.rowAt(to) + 1};
    // Keep present rows that are only a little further away.
    for (const Node& row : list.children() | std::views::reverse) {
      const std::int64_t top = heights.top(row.rowIndex);
      if (row.rowIndex + 1 == near.first && top > from - margins.keep) --near.first;
    }
    for (const Node& row : list.children()) {
      if (row.rowIndex == near.last && heights.top(row.rowIndex) < to + margins.keep) ++near.last;
    }
    ranges.push_back(near);
  }
  std::vector<const Node*> withField;
  for (const Node& row : list.children()) {
    if (row.rowIndex >= heights.count()) continue;
    if (&row == pinned.focused || &row == pinned.next) {
      ranges.push_back({row.rowIndex, row.rowIndex + 1});
    }
    if (holdsTextField(row)) withField.push_back(&row);
  }
  std::ranges::sort(withField, std::ranges::greater(), &Node::focusedAt);
  withField.resize(std::min(withField.size(), mostRowsWithField));
  for (const Node* row : withField) ranges.push_back({row->rowIndex, row->rowIndex + 1});
  return joined(std::move(ranges));
}

std::vector<RowRequest> rowRequests(const WindowedTree& tree, const Viewport& viewport,
                                    const Margins& margins, const PinnedRows& pinned) {
  std::vector<RowRequest> requests;
  for (const Node* list : tree.lists()) {
    std::vector<RowRange> wanted = wantedRows(*list, viewport, margins, pinned);
    if (!holdsExactly(*list, wanted)) requests.push_back({list->id, std::move(wanted)});
  }
  for (const Node* list : tree.wholeLists()) {
    // A list in a picker already has all its rows, so the counts are equal.
    const std::size_t count = list->element.rowCount();
    if (list->childCount != count) requests.push_back({list->id, {{0, count}}});
  }
  return requests;
}

}  // namespace vemra::page
