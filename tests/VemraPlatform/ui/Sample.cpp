#include "tests/VemraPlatform/ui/Sample.hpp"

namespace vemra::ui::sample {

namespace {

std::string differenceAt(const Node& node, const testing::RenderedTree& tree, std::size_t& seen) {
  ++seen;
  const std::string who =
      std::string(kindName(node.element.kind())) + " #" + std::to_string(node.id.value);
  const testing::RenderedTree::Node* shown = tree.find(node.id);
  if (!shown) return who + " is not shown";
  if (shown->parent != (node.parent ? tree.find(node.parent->id) : nullptr)) {
    return who + ": other parent";
  }
  if (!(shown->element == node.element)) return who + ": other element";
  if (node.isRow && shown->rowIndex != node.rowIndex) return who + ": other place in its list";
  if (shown->childCount != node.children.size()) return who + ": other count of children";
  const page::Node* shownChild = shown->firstChild;
  for (const Node* child : node.children) {
    if (shownChild->id != child->id) return who + ": other order of children";
    shownChild = shownChild->next;
    std::string below = differenceAt(*child, tree, seen);
    if (!below.empty()) return below;
  }
  return "";
}

}  // namespace

std::string difference(const ViewGraph& graph, const testing::RenderedTree& tree) {
  if (!graph.root()) return tree.root() ? "something is shown that is gone" : "";
  if (tree.root() != tree.find(graph.root()->id)) return "another root is shown";
  std::size_t seen = 0;
  std::string found = differenceAt(*graph.root(), tree, seen);
  if (found.empty() && tree.nodes().size() != seen) return "more is shown than there is";
  return found;
}

}  // namespace vemra::ui::sample
