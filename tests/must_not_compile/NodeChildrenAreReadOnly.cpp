#include "VemraPlatform/ui/ViewGraph.hpp"

vemra::ui::NodeID firstBelow(const vemra::ui::ViewGraph& graph, vemra::ui::NodeID node) {
  const vemra::ui::Node* top = graph.find(node);
#ifdef MUST_NOT_COMPILE
  top->children[0]->rowIndex = 1;
#endif
  return top->children[0]->id;
}
