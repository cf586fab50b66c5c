#include "VemraTesting/RenderedTree.hpp"

#include <stdexcept>
#include <utility>

namespace vemra::testing {

using ui::NodeID;
using ui::Patch;

void RenderedTree::apply(const std::vector<Patch>& patches) {
  patchCount_ += patches.size();
  for (const Patch& patch : patches) {
    switch (patch.kind) {
      case Patch::Kind::insert:
        if (places_.find(patch.node)) throw std::out_of_range("a node was inserted twice");
        putIn(places_.insert(patch.node, Place{{patch.node, {}, *patch.element, {}}, {}, {}, {}}),
              patch.parent, patch.after);
        break;
      case Patch::Kind::move:
        takeOut(patch.node);
        putIn(at(patch.node), patch.parent, patch.after);
        break;
      case Patch::Kind::update:
        at(patch.node).node.element = *patch.element;
        break;
      case Patch::Kind::remove:
        takeOut(patch.node);
        erase(patch.node);
        break;
    }
  }
  for (const NodeID id : std::exchange(changed_, {})) {
    Place* const parent = places_.find(id);
    if (!parent) continue;  // it has gone since
    parent->isChanged = false;
    parent->node.children.clear();
    for (NodeID child = parent->firstChild; child; child = at(child).next) {
      parent->node.children.push_back(child);
    }
  }
}

const RenderedTree::Node* RenderedTree::find(NodeID id) const {
  const Place* const found = places_.find(id);
  return found ? &found->node : nullptr;
}

std::vector<const RenderedTree::Node*> RenderedTree::nodes() const {
  std::vector<const Node*> nodes;
  nodes.reserve(places_.size());
  if (root_) collect(root_, nodes);
  return nodes;
}

void RenderedTree::collect(NodeID id, std::vector<const Node*>& nodes) const {
  const Node& node = *find(id);
  nodes.push_back(&node);
  for (const NodeID child : node.children) collect(child, nodes);
}

void RenderedTree::putIn(Place& place, NodeID parentID, NodeID after) {
  const NodeID id = place.node.id;
  place.node.parent = parentID;
  if (!parentID) {
    root_ = id;
    return;
  }
  Place& parent = at(parentID);
  Place* const sibling = after ? &at(after) : nullptr;
  if (sibling && sibling->node.parent != parentID) {
    throw std::out_of_range("a node was placed behind one that is not its sibling");
  }
  NodeID& before = sibling ? sibling->next : parent.firstChild;
  place.previous = after;
  place.next = std::exchange(before, id);
  if (place.next) at(place.next).previous = id;
  changed(parent);
}

void RenderedTree::changed(Place& parent) {
  if (std::exchange(parent.isChanged, true)) return;
  changed_.push_back(parent.node.id);
}

RenderedTree::Place& RenderedTree::at(NodeID id) {
  Place* const found = places_.find(id);
  if (!found) throw std::out_of_range("a patch speaks of a node that is not there");
  return *found;
}

void RenderedTree::takeOut(NodeID id) {
  const Place& place = at(id);
  if (!place.node.parent) {
    root_ = {};
    return;
  }
  (place.previous ? at(place.previous).next : at(place.node.parent).firstChild) = place.next;
  if (place.next) at(place.next).previous = place.previous;
  changed(at(place.node.parent));
}

void RenderedTree::erase(NodeID id) {
  for (NodeID child = at(id).firstChild; child;) {
    erase(std::exchange(child, at(child).next));
  }
  places_.erase(id);
}

}  // namespace vemra::testing
