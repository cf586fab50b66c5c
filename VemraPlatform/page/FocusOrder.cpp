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
  if (node.isWindowedRow()) place.row = node.rowIndex;
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
  waiting_.reset();
  return searchIn(node, direction);
}

Node* FocusOrder::next(Node& from, Direction direction) {
  waiting_.reset();
  return searchFrom(from, direction);
}

Node* FocusOrder::firstOfRows(Node& list, std::size_t row, Direction direction) {
  waiting_.reset();
  return list.rows ? searchRows({list.id, row, direction, 0}, Direction::forward) : nullptr;
}

Node* FocusOrder::nextTo(const LostPlace& lost, Direction direction) {
  waiting_.reset();
  const bool forward = direction == Direction::forward;
  Node* const within = tree_.find(lost.within);
  if (!within) return nullptr;
  Node* control = nullptr;
  if (lost.row && within->rows) {
    const std::size_t count = within->rows->count();
    // If there is no such row, the index wraps around, and the search finds nothing.
    const std::size_t row =
        forward ? std::min(*lost.row, count - 1) : std::min(*lost.row, count) - 1;
    control = searchRows({within->id, row, direction, 0}, direction);
  } else {
    Node* const after = tree_.find(lost.after);
    const bool isKnown = after && after->parent == within;
    control = forward ? searchSiblings(isKnown ? after->next : within->firstChild, direction)
                      : searchSiblings(isKnown ? after : nullptr, direction);
  }
  if (control || waiting_) return control;
  Node* const still = tree_.find(lost.within);
  return still ? searchFrom(*still, direction) : nullptr;
}

Node* FocusOrder::resume(const Waiting& waiting) {
  waiting_.reset();
  if (Node* const control = searchRows(waiting, waiting.direction)) return control;
  Node* const list = tree_.find(waiting.list);
  return list && !waiting_ ? searchFrom(*list, waiting.direction) : nullptr;
}

Node* FocusOrder::searchIn(Node& node, Direction direction) {
  if (node.isLeaf()) return takesFocus(node) ? &node : nullptr;
  const bool forward = direction == Direction::forward;
  if (!node.rows) return searchSiblings(forward ? node.firstChild : node.lastChild, direction);
  const std::size_t count = node.rows->count();
  return count > 0 ? searchRows({node.id, forward ? 0 : count - 1, direction, 0}, direction)
                   : nullptr;
}

Node* FocusOrder::searchFrom(Node& from, Direction direction) {
  const bool forward = direction == Direction::forward;
  for (Node *node = &from, *parent = from.parent; parent; node = parent, parent = node->parent) {
    const NodeID id = parent->id;
    Node* control = nullptr;
    if (!parent->rows) {
      control = searchSiblings(forward ? node->next : node->previous, direction);
    } else if (forward || node->rowIndex > 0) {
      const std::size_t row = forward ? node->rowIndex + 1 : node->rowIndex - 1;
      control = searchRows({id, row, direction, 0}, direction);
    }
    if (control || waiting_ || !tree_.find(id)) return control;
  }
  return nullptr;
}

/// Searches the siblings from `first` on; returns nullptr also when they are removed during the
/// search.
Node* FocusOrder::searchSiblings(Node* first, Direction direction) {
  for (Node* node = first; node;) {
    const NodeID id = node->id;
    Node* const control = searchIn(*node, direction);
    if (control || waiting_ || !tree_.find(id)) return control;
    node = direction == Direction::forward ? node->next : node->previous;
  }
  return nullptr;
}

Node* FocusOrder::searchRows(const Waiting& from, Direction within) {
  Waiting at = from;
  for (; at.rowsVisited < mostRowsWithoutControl; ++at.rowsVisited) {
    Node* const list = tree_.find(at.list);
    if (!list || at.row >= list->rows->count()) return nullptr;
    Node* const row = rows_.bringRow(*list, at.row);
    if (!row && rows_.rowsComeLater()) {
      waiting_ = at;
      return nullptr;
    }
    Node* const control = row ? searchIn(*row, within) : nullptr;
    if (control || waiting_) return control;
    if (at.direction == Direction::backward && at.row == 0) return nullptr;
    at.row = at.direction == Direction::forward ? at.row + 1 : at.row - 1;
  }
  return nullptr;
}

}  // namespace vemra::page
