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

/// One line of an HStack.
struct Line {
  std::vector<Item> items;
  int width = 0, height = 0;
};

std::vector<Line> linesOf(Node& node, const Grid& grid, int width, int spacing) {
  std::vector<Line> lines(1);
  for (const Item& item : itemsOf(node, grid)) {
    const int itemWidth = item.node->size.width + across(item.around);
    const int itemHeight = item.node->size.height + along(item.around);
    const bool first = lines.back().items.empty();
    if (!first && lines.back().width + spacing + itemWidth > width) {
      lines.emplace_back();
    } else if (!first) {
      lines.back().width += spacing;
    }
    Line& line = lines.back();
    line.items.push_back(item);
    line.width += itemWidth;
    line.height = std::max(line.height, itemHeight);
  }
  return lines;
}

Size measureFlow(Node& node, int width, LeafMetrics& metrics) {
  const Grid grid = metrics.grid();
  const int spacing = node.element.spacing();
  for (const Item& item : itemsOf(node, grid)) {
    measure(*item.node, width - across(item.around), 0, metrics);
  }
  Size size;
  for (const Line& line : linesOf(node, grid, width, grid.across(spacing))) {
    size.width = std::max(size.width, line.width);
    size.height += line.height + (size.height > 0 ? grid.down(spacing) : 0);
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
  for (const Line& line : linesOf(node, grid, width, spacing)) {
    int x = corner.x;
    for (const Item& item : line.items) {
      const int slack = line.height - item.node->size.height - along(item.around);
      const int top = y + item.around.top + (centred ? slack / 2 : 0);
      arrange(*item.node, grid, {x + item.around.leading, top}, 0);
      x += item.node->size.width + across(item.around) + spacing;
    }
    y += line.height + grid.down(node.element.spacing());
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
