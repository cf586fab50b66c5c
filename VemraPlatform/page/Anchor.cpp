#include "VemraPlatform/page/Anchor.hpp"

#include <algorithm>
#include <cstdint>

namespace vemra::page {

Anchor::Anchor(Reason reason, const WindowedTree& tree, const Frames& frames,
               const Viewport& viewport, const Node* focused, const LeafMetrics& metrics) {
  if (focused && !viewport.shows(frames.of(*focused))) focused = nullptr;
  if (reason == Reason::scrolledToEnd && viewport.position > 0) {
    kind_ = Kind::bottom;
    return;
  }
  if (viewport.position <= 0 && (reason != Reason::changed || !focused)) return;
  kind_ = Kind::inside;
  const auto add = [&](const Node& leaf) {
    const Rect frame = frames.of(leaf);
    Point& point = points_.emplace_back();
    point.node = leaf.id;
    point.top = frame.y - viewport.position;
    point.height = frame.height;
    if (point.top < 0) point.part = metrics.partAt(leaf, -point.top);
    if (point.part) point.topOfPart = point.top + metrics.topOfPart(leaf, *point.part).value_or(0);
  };
  if (focused) add(*focused);
  if (tree.root()) {
    forEachLeaf(*tree.root(), [&](const Node& leaf) {
      if (!leaf.frame.isEmpty() && viewport.shows(frames.of(leaf))) add(leaf);
    });
  }
  for (const Node* list : tree.lists()) {
    const int inList = viewport.position - list->frame.y;
    if (list->rows->count() == 0 || inList < 0 || inList >= list->frame.height) continue;
    list_ = list->id;
    row_ = list->rows->rowAt(inList);
    offset_ = inList - list->rows->topOnPage(row_);
  }
}

/// The previous position of the leaf's top, if the part in view is to keep its place.
int Anchor::topOf(const Point& point, const Node& node, const Rect& frame,
                  const LeafMetrics& metrics) const {
  const auto part = point.part ? metrics.topOfPart(node, *point.part) : std::nullopt;
  if (part) return point.topOfPart - *part;
  if (point.top >= 0 || point.height <= 0) return point.top;
  return static_cast<int>(std::int64_t{point.top} * frame.height / point.height);
}

int Anchor::position(const WindowedTree& tree, const Frames& frames, const Viewport& viewport,
                     const LeafMetrics& metrics) const {
  if (kind_ == Kind::top) return 0;
  if (kind_ == Kind::bottom) return tree.root() ? tree.root()->size.height : 0;
  for (const Point& point : points_) {
    const Node* const node = tree.find(point.node);
    if (!node) continue;
    const Rect frame = frames.of(*node);
    return frame.y - topOf(point, *node, frame, metrics);
  }
  const Node* const list = tree.find(list_);
  if (!list || list->rows->count() == 0) return viewport.position;
  const std::size_t row = std::min(row_, list->rows->count() - 1);
  return list->frame.y + list->rows->topOnPage(row) +
         std::min(offset_, list->rows->height(row) - 1);
}

}  // namespace vemra::page
