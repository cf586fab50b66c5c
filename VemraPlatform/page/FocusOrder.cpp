#include "VemraPlatform/page/FocusOrder.hpp"

#include <algorithm>

namespace vemra::page {

using ui::NodeID;

namespace {

constexpr std::size_t mostRowsWithoutControl = 64;

}  // namespace

LostPlace LostPlace::of(const Node& node) {
  LostPlace place;
  if (!node.parent) return place;
  place.within = node.parent->id;
  if (node.previous) place.after = node.previous->id;
  if (node.isRow()) place.row = node.rowIndex;
  return place;
}

bool takesFocus(const Node& leaf) {
  return leaf.isLeaf() && leaf.element.kind() != ui::ElementKind::text &&
         leaf.element.style().enabled;
}

bool isInside(const Node* node, const Node& holder) {
  while (node && node != &holder) node = node->parent;
  return node != nullptr;
}

Node* FocusOrder::firstIn(Node& node, Direction direction) {
  if (node.isLeaf()) return takesFocus(node) ? &node : nullptr;
  if (node.rows) return firstInList(node, direction);
  const bool forward = direction == Direction::forward;
  for (Node* child = forward ? node.firstChild : node.lastChild; child;
       child = forward ? child->next : child->previous) {
    const NodeID id = child->id;
    if (Node* const control = firstIn(*child, direction)) return control;
    if (!tree_.find(id)) return nullptr;  // went while rows were brought in
  }
  return nullptr;
}

Node* FocusOrder::firstInList(Node& list, Direction direction) {
  const NodeID id = list.id;
  const std::size_t count = list.rows->count();
  for (std::size_t i = 0; i < std::min(count, mostRowsWithoutControl); ++i) {
    Node* const still = tree_.find(id);
    if (!still) return nullptr;
    Node* const row = rows_.bringRow(*still, direction == Direction::forward ? i : count - 1 - i);
    Node* const control = row ? firstIn(*row, direction) : nullptr;
    if (control) return control;
  }
  return nullptr;
}

Node* FocusOrder::next(Node& from, Direction direction) {
  const bool forward = direction == Direction::forward;
  for (Node *node = &from, *parent = from.parent; parent; node = parent, parent = node->parent) {
    const NodeID id = parent->id;
    if (parent->rows) {
      if (Node* const control = nextInList(*node, direction)) return control;
      if (!tree_.find(id)) return nullptr;
      continue;
    }
    Node* sibling = forward ? node->next : node->previous;
    while (sibling) {
      const NodeID siblingID = sibling->id;
      if (Node* const control = firstIn(*sibling, direction)) return control;
      if (!tree_.find(siblingID)) return nullptr;
      sibling = forward ? sibling->next : sibling->previous;
    }
  }
  return nullptr;
}

Node* FocusOrder::nextInList(Node& row, Direction direction) {
  const NodeID list = row.parent->id;
  std::size_t index = row.rowIndex;
  for (std::size_t i = 0; i < mostRowsWithoutControl; ++i) {
    Node* const still = tree_.find(list);
    if (!still) return nullptr;
    if (direction == Direction::forward ? index + 1 >= still->rows->count() : index == 0) break;
    index = direction == Direction::forward ? index + 1 : index - 1;
    Node* const next = rows_.bringRow(*still, index);
    Node* const control = next ? firstIn(*next, direction) : nullptr;
    if (control) return control;
  }
  return nullptr;
}

Node* FocusOrder::inPlaceOf(const LostPlace& lost) {
  Node* const within = tree_.find(lost.within);
  if (!within) return nullptr;
  if (lost.row && within->rows) {
    const std::size_t count = within->rows->count();
    if (count == 0) return nullptr;
    Node* const row = rows_.bringRow(*within, std::min(*lost.row, count - 1));
    return row ? firstIn(*row) : nullptr;
  }
  Node* const after = tree_.find(lost.after);
  Node* child = after && after->parent == within ? after->next : within->firstChild;
  while (child) {
    const NodeID id = child->id;
    if (Node* const control = firstIn(*child)) return control;
    if (!tree_.find(id)) return nullptr;
    child = child->next;
  }
  return nullptr;
}

}  // namespace vemra::page
