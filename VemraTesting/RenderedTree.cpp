#include "VemraTesting/RenderedTree.hpp"

#include <algorithm>

namespace vemra::testing {

using ui::NodeID;
using ui::Patch;

void RenderedTree::apply(const std::vector<Patch>& patches) {
  patchCount_ += patches.size();
  for (const Patch& patch : patches) {
    switch (patch.kind) {
      case Patch::Kind::insert:
        nodes_.insert_or_assign(patch.node, Node{patch.node, {}, *patch.element, {}});
        place(patch.node, patch.parent, patch.after);
        break;
      case Patch::Kind::move:
        takeOut(patch.node);
        place(patch.node, patch.parent, patch.after);
        break;
      case Patch::Kind::update:
        nodes_.at(patch.node).element = *patch.element;
        break;
      case Patch::Kind::remove:
        takeOut(patch.node);
        erase(patch.node);
        break;
    }
  }
}

const RenderedTree::Node* RenderedTree::find(NodeID id) const {
  auto found = nodes_.find(id);
  return found == nodes_.end() ? nullptr : &found->second;
}

std::vector<const RenderedTree::Node*> RenderedTree::nodes() const {
  std::vector<const Node*> nodes;
  if (root_) collect(root_, nodes);
  return nodes;
}

void RenderedTree::collect(NodeID id, std::vector<const Node*>& nodes) const {
  const Node& node = nodes_.at(id);
  nodes.push_back(&node);
  for (NodeID child : node.children) collect(child, nodes);
}

void RenderedTree::place(NodeID node, NodeID parent, NodeID after) {
  nodes_.at(node).parent = parent;
  if (!parent) {
    root_ = node;
    return;
  }
  std::vector<NodeID>& siblings = nodes_.at(parent).children;
  // Rows mostly arrive at the end: look there first.
  const bool last = !siblings.empty() && siblings.back() == after;
  auto where = last     ? siblings.end()
               : !after ? siblings.begin()
                        : std::next(std::ranges::find(siblings, after));
  siblings.insert(where, node);
}

void RenderedTree::takeOut(NodeID node) {
  const NodeID parent = nodes_.at(node).parent;
  if (!parent) {
    root_ = {};
    return;
  }
  std::erase(nodes_.at(parent).children, node);
}

void RenderedTree::erase(NodeID id) {
  const Node node = std::move(nodes_.extract(id).mapped());
  for (NodeID child : node.children) erase(child);
}

}  // namespace vemra::testing
