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
        if (!places_.emplace(patch.node, Place{{patch.node, {}, *patch.element, {}}, {}, {}, {}})
                 .second) {
          throw std::out_of_range("a node was inserted twice");
        }
        putIn(patch.node, patch.parent, patch.after);
        break;
      case Patch::Kind::move:
        takeOut(patch.node);
        putIn(patch.node, patch.parent, patch.after);
        break;
      case Patch::Kind::update:
        places_.at(patch.node).node.element = *patch.element;
        break;
      case Patch::Kind::remove:
        takeOut(patch.node);
        erase(patch.node);
        break;
    }
  }
  for (const NodeID id : std::exchange(changed_, {})) {
    Place& parent = places_.at(id);
    parent.node.children.clear();
    for (NodeID child = parent.firstChild; child; child = places_.at(child).next) {
      parent.node.children.push_back(child);
    }
  }
}

const RenderedTree::Node* RenderedTree::find(NodeID id) const {
  const auto found = places_.find(id);
  return found == places_.end() ? nullptr : &found->second.node;
}

std::vector<const RenderedTree::Node*> RenderedTree::nodes() const {
  std::vector<const Node*> nodes;
  nodes.reserve(places_.size());
  if (root_) collect(root_, nodes);
  return nodes;
}

void RenderedTree::collect(NodeID id, std::vector<const Node*>& nodes) const {
  const Node& node = places_.at(id).node;
  nodes.push_back(&node);
  for (const NodeID child : node.children) collect(child, nodes);
}

void RenderedTree::putIn(NodeID id, NodeID parent, NodeID after) {
  Place& place = places_.at(id);
  place.node.parent = parent;
  if (!parent) {
    root_ = id;
    return;
  }
  if (after && places_.at(after).node.parent != parent) {
    throw std::out_of_range("a node was placed behind one that is not its sibling");
  }
  NodeID& before = after ? places_.at(after).next : places_.at(parent).firstChild;
  place.previous = after;
  place.next = std::exchange(before, id);
  if (place.next) places_.at(place.next).previous = id;
  changed_.insert(parent);
}

void RenderedTree::takeOut(NodeID id) {
  const Place& place = places_.at(id);
  if (!place.node.parent) {
    root_ = {};
    return;
  }
  (place.previous ? places_.at(place.previous).next : places_.at(place.node.parent).firstChild) =
      place.next;
  if (place.next) places_.at(place.next).previous = place.previous;
  changed_.insert(place.node.parent);
}

void RenderedTree::erase(NodeID id) {
  for (NodeID child = places_.at(id).firstChild; child;) {
    erase(std::exchange(child, places_.at(child).next));
  }
  places_.erase(id);
  changed_.erase(id);
}

}  // namespace vemra::testing
