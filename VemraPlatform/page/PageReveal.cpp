// Scrolls elements and rows of a page into view.

#include "VemraPlatform/page/Page.hpp"

#include <algorithm>
#include <ranges>

namespace vemra::page {

void Page::reveal(const Node& leaf) {
  const int position = positionShowing(leaf, frames(), viewport(), margins_.air);
  if (position != position_) host_.scrollTo(position);
}

void Page::scrollIn(ui::NodeID element) {
  const Node* const node = tree_.find(element);
  if (!node) return;
  const Rect frame = frames().of(*node);
  const Viewport seen = viewport();
  const int visible =
      std::min(frame.bottom(), seen.position + seen.height) - std::max(frame.y, seen.position);
  if (visible < std::min(frame.height, seen.height / 2)) reveal(*node);
}

void Page::revealRow(ui::NodeID list, std::size_t index) {
  Node* const node = tree_.find(list);
  if (node && node->rows && index < node->rows->count()) bringRow(*node, index);
  beforeSearch_.reset();
}

Node* Page::bringRow(Node& list, std::size_t index) {
  const ui::NodeID id = list.id;
  const auto find = [&]() -> Node* {
    Node* const still = tree_.find(id);
    if (!still) return nullptr;
    const auto row = std::ranges::find(still->children(), index, &Node::rowIndex);
    return row == still->children().end() ? nullptr : &*row;
  };
  if (Node* const row = find()) return row;
  if (filling_) return nullptr;
  if (!beforeSearch_) {
    beforeSearch_.emplace(Anchor::Reason::scrolled, tree_, frames(), viewport(), nullptr, host_);
  }
  host_.scrollTo(list.frame.y + list.rows->topOnPage(index) - viewport().height / 3);
  return find();
}

}  // namespace vemra::page
