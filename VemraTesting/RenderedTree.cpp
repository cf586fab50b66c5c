#include "VemraTesting/RenderedTree.hpp"

namespace vemra::testing {

namespace {

void collect(const page::Node& node, std::vector<const page::Node*>& nodes) {
  nodes.push_back(&node);
  for (const page::Node& child : node.children()) collect(child, nodes);
}

}  // namespace

void RenderedTree::apply(const ui::Changes& changes) {
  patchCount_ += changes.patches.size();
  tree_.apply(changes);
}

std::vector<const RenderedTree::Node*> RenderedTree::nodes() const {
  std::vector<const Node*> nodes;
  if (!root()) return nodes;
  nodes.reserve(tree_.size());  // one allocation, whatever the size of the tree
  collect(*root(), nodes);
  return nodes;
}

}  // namespace vemra::testing
