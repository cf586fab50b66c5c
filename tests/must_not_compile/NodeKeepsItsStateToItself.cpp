#include "VemraPlatform/ui/ViewGraph.hpp"

std::size_t countChildren(const vemra::ui::ViewGraph& graph) {
  const vemra::ui::Node* root = graph.root();
#ifdef MUST_NOT_COMPILE
  if (root->memory_.state) return 0;
#endif
  return root->children.size();
}
