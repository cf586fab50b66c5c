#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"

#include <cstddef>

namespace vemra::testing {

/// Calls `read` with each child of a node, in order, those of all rows included: a row that is not
/// shown is described, read and dropped again, so the tree of all rows is never in memory.
///
/// A child is valid during its call. Throws what the descriptions throw. Not inside an action of
/// the tree, where the graph describes no row.
template <class Read>
void eachChild(ui::ViewGraph& graph, const ui::Node& node, const Read& read) {
  const bool isList = node.element.kind() == ui::ElementKind::forEach;
  const std::size_t rows = isList ? node.element.rowCount() : 0;
  if (!isList || node.children.size() == rows) {
    for (const ui::Node* child : node.children) read(*child);
    return;
  }
  const ui::NodeID list = node.id;
  for (std::size_t row = 0; row < rows; ++row) {
    if (const ui::Node* described = graph.find(graph.peekRow(list, row))) read(*described);
  }
}

}  // namespace vemra::testing
