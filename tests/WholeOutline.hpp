#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraTesting/Outline.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace vemra::testing {

/// Appends the whole tree as indented text, also the rows that a window has not made.
inline void writeOutline(std::string& text, ui::ViewGraph& graph, ui::NodeID id,
                         std::size_t depth) {
  const ui::Node* const node = graph.find(id);
  if (node == nullptr) return;
  text += std::string(2 * depth, ' ') + outlineLine(node->element) + '\n';
  std::vector<ui::NodeID> children;
  const bool isList = node->element.kind() == ui::ElementKind::forEach;
  const std::size_t rows = node->element.rowCount();
  for (const ui::Node* child : node->children) children.push_back(child->id);
  if (!isList || children.size() == rows) {
    for (const ui::NodeID child : children) writeOutline(text, graph, child, depth + 1);
    return;
  }
  for (std::size_t row = 0; row < rows; ++row) {
    writeOutline(text, graph, graph.peekRow(id, row), depth + 1);
  }
}

/// The elements of a screen in a window or without one. Of a composite it has the name only.
inline std::string outlineOf(ui::ViewGraph& graph) {
  std::string text;
  if (const ui::Node* root = graph.root()) writeOutline(text, graph, root->id, 0);
  return text;
}

}  // namespace vemra::testing
