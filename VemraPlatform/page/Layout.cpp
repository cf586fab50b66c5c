#include "VemraPlatform/page/Layout.hpp"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace vemra::page {

using ui::ElementKind;
using ui::Insets;

namespace {

struct Item {
  Node* node;
  Insets around;  // of transparent nodes between the stack and the item
};

Insets operator+(const Insets& a, const Insets& b) {
  return {a.top + b.top, a.leading + b.leading, a.bottom + b.bottom, a.trailing + b.trailing};
}

int across(const Insets& insets) {
  return insets.leading + insets.trailing;
}
int along(const Insets& insets) {
  return insets.top + insets.bottom;
}

void collectItems(Node& holder, const Grid& grid, const Insets& around, std::vector<Item>& items) {
  for (Node& child : holder.children()) {
    if (child.rows) {
      if (child.element.rowCount() > 0) items.push_back({&child, around});
    } else if (child.isTransparent()) {
      collectItems(child, grid, around + paddingIn(grid, child), items);
    } else {
      items.push_back({&child, around});
    }
  }
}

std::vector<Item> itemsOf(Node& holder, const Grid& grid) {
  std::vector<Item> items;
  collectItems(holder, grid, {}, items);
  return items;
}

Size measure(Node& node, int width, int spacing, LeafMetrics& metrics);

/// Measures a windowed list: the rows with nodes are measured, the others estimated.
Size measureList(Node& list, int width, int spacing, LeafMetrics& metrics) {
  RowHeights& heights = *list.rows;
  // Padding of the list itself applies to each of its rows.
  const Insets padding = paddingIn(metrics.grid(), list);
  const std::size_t count = list.element.rowCount();
  if (list.rowWidth != width) heights.forgetEstimate();
  if (list.rowWidth != width || heights.count() != count || heights.gap() != spacing) {
    heights.reset(count, spacing);
    list.rowWidth = width;
  }
  std::int64_t sum = 0;
  for (Node& row : list.children()) {
    sum += measureScope(row, width - across(padding), spacing, metrics).height + along(padding);
  }
  if (list.childCount > 0 && !heights.isCalibrated()) {
    const auto rows = static_cast<std::int64_t>(list.childCount);
    heights.setEstimate(static_cast<int>((sum + rows / 2) / rows));
  }
  for (const Node& row : list.children()) {
    if (row.rowIndex < count) heights.setHeight(row.rowIndex, row.size.height + along(padding));
  }
  return {width, heights.totalOnPage()};
}

Size measureColumn(Node& node, int width, int spacing, LeafMetrics& metrics) {
  Size size;
  bool first = true;
  for (const Item& item : itemsOf(node, metrics.grid())) {
    const int room = width - across(item.around);
    const Size part = measure(*item.node, room, item.node->rows ? spacing : 0, metrics);
    size.width = std::max(size.width, part.width + across(item.around));
    size.height += part.height + along(item.around) + (first ? 0 : spacing);
    first = false;
  }
  return size;
}

/// Whether the node is or holds a text field, outside windowed lists.
bool holdsField(const Node& node) {
  if (node.isLeaf()) return node.element.kind() == ElementKind::textField;
  return !node.rows && std::ranges::any_of(node.children(), holdsField);
}

int leastWidth(Node& node, int width, LeafMetrics& metrics);

/// The same for a node that holds a field, or is one. `width` is at least 1.
int leastWidthAroundFields(Node& node, int width, LeafMetrics& metrics) {
  const Grid grid = metrics.grid();
  const int padded = across(paddingIn(grid, node));
  const int room = std::max(1, width - padded);
  if (node.isLeaf()) return padded + std::min(metrics.narrowestField(node), room);
  node.measuredWidth = -1;  // the nodes below are measured for other widths now
  const bool isLine = node.element.kind() == ElementKind::hStack;
  const int gap = isLine ? grid.across(node.element.spacing()) : 0;
  int sum = -gap, widest = 0;
  for (const Item& item : itemsOf(node, grid)) {
    const int around = across(item.around);
    const int least = leastWidth(*item.node, room - around, metrics) + around;
    sum += least + gap;
    widest = std::max(widest, least);
  }
  return padded + (isLine && sum <= room ? sum : std::max(widest, isLine ? room : 0));
}

/// The width that a node needs at least in a line of an HStack: as much as it likes, except that
/// text fields are at their narrowest.
int leastWidth(Node& node, int width, LeafMetrics& metrics) {
  width = std::max(width, 1);
  if (!holdsField(node)) {
    node.leastWidth = measure(node, width, 0, metrics).width;
  } else if (node.measuredWidth < 0 || node.leastWidthIn != width) {
    node.leastWidth = leastWidthAroundFields(node, width, metrics);
    node.leastWidthIn = width;
  }
  return node.leastWidth;
}

/// One line of an HStack.
using Line = std::vector<Item>;

/// Breaks the measured items of an HStack into lines, by the least widths of the items.
std::vector<Line> linesOf(Node& node, const Grid& grid, int width) {
  const int spacing = grid.across(node.element.spacing());
  std::vector<Line> lines(1);
  int used = 0;
  for (const Item& item : itemsOf(node, grid)) {
    const int least = item.node->leastWidth + across(item.around);
    if (!lines.back().empty() && used + spacing + least > width) lines.emplace_back();
    used = lines.back().empty() ? least : used + spacing + least;
    lines.back().push_back(item);
  }
  return lines;
}

int heightOf(const Line& line) {
  int height = 0;
  for (const Item& item : line) {
    height = std::max(height, item.node->size.height + along(item.around));
  }
  return height;
}

/// Gives the text fields of a line the room that is left in it, and returns the width of the line.
int fillLine(const Line& line, int width, int spacing, LeafMetrics& metrics) {
  int used = -spacing, fields = 0;
  for (const Item& item : line) {
    used += spacing + item.node->leastWidth + across(item.around);
    fields += holdsField(*item.node) ? 1 : 0;
  }
  for (const Item& item : line) {
    if (!holdsField(*item.node)) continue;
    const int least = item.node->leastWidth;
    const int share = std::max(0, width - used) / fields--;
    used += measure(*item.node, least + share, 0, metrics).width - least;
  }
  return used;
}

Size measureFlow(Node& node, int width, LeafMetrics& metrics) {
  const Grid grid = metrics.grid();
  const int spacing = grid.across(node.element.spacing());
  for (const Item& item : itemsOf(node, grid)) {
    leastWidth(*item.node, width - across(item.around), metrics);
  }
  Size size;
  for (const Line& line : linesOf(node, grid, width)) {
    if (line.empty()) continue;
    size.width = std::max(size.width, fillLine(line, width, spacing, metrics));
    size.height += heightOf(line) + (size.height > 0 ? grid.down(node.element.spacing()) : 0);
  }
  return size;
}

Size measure(Node& node, int width, int spacing, LeafMetrics& metrics) {
  width = std::max(width, 1);
  if (node.measuredWidth == width) return node.size;
  if (node.rows) {
    node.size = measureList(node, width, spacing, metrics);
    node.measuredWidth = width;
    return node.size;
  }
  const Grid grid = metrics.grid();
  const Insets padding = paddingIn(grid, node);
  const int room = std::max(1, width - across(padding));
  Size inner;
  if (node.isLeaf()) {
    inner = metrics.measure(node, room);
  } else if (node.element.kind() == ElementKind::hStack) {
    inner = measureFlow(node, room, metrics);
  } else {
    inner = measureColumn(
        node, room, node.isTransparent() ? spacing : grid.down(node.element.spacing()), metrics);
  }
  node.size = {inner.width + across(padding), inner.height + along(padding)};
  node.measuredWidth = width;
  return node.size;
}

void arrange(Node& node, const Grid& grid, Point corner, int spacing);

void arrangeColumn(Node& node, const Grid& grid, Point corner, int width, int spacing) {
  const bool centred = node.element.horizontalAlignment() == ui::HorizontalAlignment::center;
  int y = corner.y;
  for (const Item& item : itemsOf(node, grid)) {
    const int slack = width - item.node->size.width - across(item.around);
    const int x = corner.x + item.around.leading + (centred ? slack / 2 : 0);
    arrange(*item.node, grid, {x, y + item.around.top}, 0);
    y += item.node->size.height + along(item.around) + spacing;
  }
}

void arrangeFlow(Node& node, const Grid& grid, Point corner, int width) {
  const int spacing = grid.across(node.element.spacing());
  const bool centred = node.element.verticalAlignment() == ui::VerticalAlignment::center;
  int y = corner.y;
  for (const Line& line : linesOf(node, grid, width)) {
    const int height = heightOf(line);
    int x = corner.x;
    for (const Item& item : line) {
      const int slack = height - item.node->size.height - along(item.around);
      const int top = y + item.around.top + (centred ? slack / 2 : 0);
      arrange(*item.node, grid, {x + item.around.leading, top}, 0);
      x += item.node->size.width + across(item.around) + spacing;
    }
    y += height + grid.down(node.element.spacing());
  }
}

void arrange(Node& node, const Grid& grid, Point corner, int spacing) {
  const Insets padding = node.rows ? Insets{} : paddingIn(grid, node);
  const Rect inside{corner.x + padding.leading, corner.y + padding.top,
                    node.size.width - across(padding), node.size.height - along(padding)};
  node.frame = inside;
  if (node.isLeaf() || node.rows) return;
  if (node.element.kind() == ElementKind::hStack) {
    const int width = std::max(1, node.measuredWidth - across(padding));
    arrangeFlow(node, grid, {inside.x, inside.y}, width);
  } else {
    arrangeColumn(node, grid, {inside.x, inside.y}, inside.width,
                  node.isTransparent() ? spacing : grid.down(node.element.spacing()));
  }
}

}  // namespace

Insets paddingIn(const Grid& grid, const Node& node) {
  const Insets points = node.element.padding();
  return {grid.down(points.top), grid.across(points.leading), grid.down(points.bottom),
          grid.across(points.trailing)};
}

Size measureScope(Node& scope, int width, int spacing, LeafMetrics& metrics) {
  const bool known = scope.measuredWidth == std::max(width, 1);
  const Size size = measure(scope, width, spacing, metrics);
  if (!known) arrange(scope, metrics.grid(), {}, spacing);
  return size;
}

}  // namespace vemra::page
