#pragma once

#include "VemraPlatform/ui/Node.hpp"

#include <vector>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

/// Gives the graph the part of a node that nothing else may use: its state, its rows, and marks of
/// the running pass.
struct NodeAccess {
  static auto& memory(Node& node) { return node.memory_; }
  static const auto& memory(const Node& node) { return node.memory_; }
  static std::vector<Node*>& children(Node& node) { return node.children.nodes_; }
};

inline auto& memoryOf(Node& node) {
  return NodeAccess::memory(node);
}
inline const auto& memoryOf(const Node& node) {
  return NodeAccess::memory(node);
}
inline std::vector<Node*>& childNodesOf(Node& node) {
  return NodeAccess::children(node);
}

}  // namespace vemra::ui
