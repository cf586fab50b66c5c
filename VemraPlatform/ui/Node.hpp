#pragma once

#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/Identity.hpp"
#include "VemraPlatform/ui/NodeID.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vemra::ui {

class StateCell;
struct Node;
struct Rows;
struct SavedState;

/// The children of a node, in order. Only the graph changes them, and the nodes themselves.
class NodeChildren {
 public:
  /// The first child.
  const Node* const* begin() const { return nodes_.data(); }
  /// The place behind the last child.
  const Node* const* end() const { return begin() + nodes_.size(); }
  /// The number of children.
  std::size_t size() const { return nodes_.size(); }
  /// Whether there are no children.
  bool empty() const { return nodes_.empty(); }
  /// The child at `place`, which must be below `size()`.
  const Node* operator[](std::size_t place) const { return nodes_[place]; }
  /// The first child; there must be one.
  const Node* front() const { return nodes_.front(); }

 private:
  friend struct NodeAccess;

  std::vector<Node*> nodes_;
};

/// A node of the living tree: a view at its place, with its present description.
///
/// Renderers need no nodes: patches hand them elements. Assistive technology, automation and tests
/// read nodes through `ViewGraph::find`, which also reaches rows that are described without being
/// shown. Only the graph changes them.
struct Node {
  /// Only the graph makes nodes.
  Node(NodeID newID, const Node* itsParent, Identity itsIdentity, Element newElement)
      : id(newID),
        parent(itsParent),
        identity(std::move(itsIdentity)),
        element(std::move(newElement)) {}

  Node(const Node&) = delete;  // a copy could be changed, and its children with it
  Node& operator=(const Node&) = delete;
  Node(Node&&) = default;
  Node& operator=(Node&&) = default;
  ~Node() = default;

  NodeID id;           ///< names the node in patches and events; never used again
  const Node* parent;  ///< nullptr for the root
  Identity identity;   ///< decides whether a new description is this node's
  Element element;     ///< the present content and style
  /// In order. For a `ForEach`: the shown rows.
  NodeChildren children;

  /// For a row of a `ForEach`: its index among all rows, and its id byte for byte.
  bool isRow = false;
  std::size_t rowIndex = 0;  ///< 0 for a node that is no row
  std::string rowID;         ///< "" for a node that is no row
  bool isShown = true;       ///< false for a row that was described without being shown

 private:
  friend struct NodeAccess;

  /// The part that only the graph uses.
  struct Memory {
    std::shared_ptr<StateCell> state;  // for a composite with state
    std::shared_ptr<Rows> rows;        // for a ForEach
    // For a composite whose body threw while its row woke up: the saved state of the nodes below
    // it.
    std::shared_ptr<SavedState> asleepBelow;
    std::uint64_t describedInPass = 0;
    bool isGone = false;  // removed from the tree, not freed yet
  };
  Memory memory_;
};

}  // namespace vemra::ui
