#include "VemraPlatform/ui/ViewGraph.hpp"

vemra::ui::NodeID above(const vemra::ui::ViewGraph& graph, vemra::ui::NodeID node) {
  const vemra::ui::Node* below = graph.find(node);
#ifdef MUST_NOT_COMPILE
  below->parent->rowID = "";
#endif
  return below->parent->id;
}
