#include "VemraPlatform/page/Frames.hpp"

#include "VemraPlatform/page/Layout.hpp"

namespace vemra::page {

using ui::LayoutDirection;

Rect Frames::of(const Node& leaf) const {
  const bool rightToLeft = direction_ == LayoutDirection::rightToLeft;
  const Node* const row = rowOf(&leaf);
  const Node* const scope = row ? row : tree_.root();
  const Rect frame = rightToLeft ? mirrored(leaf.frame, scope->measuredWidth) : leaf.frame;
  if (!row) return frame;
  const ui::Insets padding = paddingIn(grid_, *row->parent);
  const Rect whole = ofRow(*row->parent, row->rowIndex);
  return frame.movedBy(whole.x + (rightToLeft ? padding.trailing : padding.leading),
                       whole.y + padding.top);
}

Rect Frames::ofRow(const Node& list, std::size_t index) const {
  const Rect rows = direction_ == LayoutDirection::rightToLeft
                        ? mirrored(list.frame, tree_.root()->measuredWidth)
                        : list.frame;
  return {rows.x, rows.y + list.rows->topOnPage(index), rows.width, list.rows->height(index)};
}

int positionShowing(const Node& leaf, const Frames& frames, const Viewport& viewport, int air) {
  Rect frame = frames.of(leaf);
  if (const Node* const row = rowOf(&leaf)) {
    Rect whole;
    forEachLeaf(*row, [&](const Node& part) { whole = united(whole, frames.of(part)); });
    if (whole.height + 2 * air <= viewport.height) frame = whole;
  }
  const int top = frame.y - air, last = frame.bottom() - 1 + air;
  if (top < viewport.position) return top;
  if (last > viewport.position + viewport.height) return last - viewport.height;
  return viewport.position;
}

}  // namespace vemra::page
