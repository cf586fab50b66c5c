#include "VemraPlatform/page/PatchedTree.hpp"

#include <stdexcept>
#include <utility>

namespace vemra::page {

using ui::NodeID;
using ui::Patch;

void PatchedTree::apply(const ui::Changes& changes) {
  for (const Patch& patch : changes.patches) {
    switch (patch.kind) {
      case Patch::Kind::insert: {
        if (find(patch.node)) throw std::out_of_range("a node was inserted twice");
        const Place place = placeOf(patch);
        Node& node = nodes_.insert(patch.node, Node(patch.node, *patch.element));
        link(node, place);
        if (observer_) observer_->inserted(node);
        break;
      }
      case Patch::Kind::move: {
        Node& node = at(patch.node);
        const Place place = placeOf(patch);
        unlink(node);
        link(node, place);
        break;
      }
      case Patch::Kind::update: {
        Node& node = at(patch.node);
        node.element = *patch.element;
        if (observer_) observer_->updated(node);
        break;
      }
      case Patch::Kind::remove: {
        Node& node = at(patch.node);
        if (observer_) observer_->removing(node);
        unlink(node);
        erase(node);
        break;
      }
    }
  }
  for (const ui::ListRows& rows : changes.lists) placeRows(rows);
}

void PatchedTree::placeRows(const ui::ListRows& rows) {
  Node& list = at(rows.list);
  std::size_t count = 0;
  for (const ui::RowRange& range : rows.shown) count += range.last - range.first;
  if (count != list.childCount) throw std::out_of_range("a list has other rows than children");
  if (observer_) observer_->rowsPlaced(list, rows);
  forEachRow(list, rows, [](Node& row, std::size_t index) { row.rowIndex = index; });
}

Node* PatchedTree::find(NodeID id) {
  return nodes_.find(id);
}

const Node* PatchedTree::find(NodeID id) const {
  return nodes_.find(id);
}

Node& PatchedTree::at(NodeID id) {
  Node* const found = find(id);
  if (!found) throw std::out_of_range("a patch names a node that does not exist");
  return *found;
}

/// The place that the patch names. Throws before the tree is changed when there is no such place.
PatchedTree::Place PatchedTree::placeOf(const Patch& patch) {
  if (!patch.parent) {
    if (root_ && root_->id != patch.node) throw std::out_of_range("a tree got a second root");
    return {};
  }
  Node& parent = at(patch.parent);
  for (const Node* above = &parent; above; above = above->parent) {
    if (above->id == patch.node) throw std::out_of_range("a node was placed inside itself");
  }
  Node* const sibling = patch.after ? &at(patch.after) : nullptr;
  if (sibling && (sibling->parent != &parent || sibling->id == patch.node)) {
    throw std::out_of_range("a node was placed behind one that is not its sibling");
  }
  return {&parent, sibling};
}

void PatchedTree::link(Node& node, const Place& place) {
  if (!place.parent) {
    root_ = &node;
    return;
  }
  Node& parent = *place.parent;
  Node* const sibling = place.after;
  node.parent = &parent;
  node.previous = sibling;
  node.next = std::exchange(sibling ? sibling->next : parent.firstChild, &node);
  (node.next ? node.next->previous : parent.lastChild) = &node;
  ++parent.childCount;
  if (observer_) observer_->childrenChanged(parent);
}

void PatchedTree::unlink(Node& node) {
  Node* const parent = std::exchange(node.parent, nullptr);
  if (!parent) {
    if (root_ == &node) root_ = nullptr;
    return;
  }
  Node* const previous = std::exchange(node.previous, nullptr);
  Node* const next = std::exchange(node.next, nullptr);
  (previous ? previous->next : parent->firstChild) = next;
  (next ? next->previous : parent->lastChild) = previous;
  --parent->childCount;
  if (observer_) observer_->childrenChanged(*parent);
}

void PatchedTree::erase(Node& node) {
  while (Node* const child = node.firstChild) {
    node.firstChild = child->next;
    erase(*child);
  }
  nodes_.erase(node.id);
}

}  // namespace vemra::page
