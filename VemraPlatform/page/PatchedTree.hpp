#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Node.hpp"
#include "VemraPlatform/ui/NodeTable.hpp"
#include "VemraPlatform/ui/Patch.hpp"

#include <cstddef>

namespace vemra::page {

/// Applies patches to a tree of nodes, for every renderer that needs such a tree.
///
/// It reads only the changes that a renderer gets. The address of a node stays the same until a
/// patch removes the node.
class VEMRA_EXPORT PatchedTree {
 public:
  /// Gets a call after every change, and before a removal. Must not throw.
  class VEMRA_EXPORT Observer {
   public:
    /// The node was inserted; its children follow in calls of their own.
    virtual void inserted(Node&) {}
    /// The node has another element, or another place.
    virtual void updated(Node&) {}
    /// The children of a list have these indexes among its rows. Called after all patches, before
    /// the children's `rowIndex` is set.
    virtual void rowsPlaced(Node& /*list*/, const ui::ListRows&) {}
    /// A child was added, removed or moved.
    virtual void childrenChanged(Node& /*parent*/) {}
    /// The node and its subtree are about to be removed; all are still in their places.
    virtual void removing(Node&) {}

   protected:
    ~Observer() = default;
  };

  PatchedTree() = default;
  /// `observer` must outlive the tree. It gets no calls when the tree is destroyed.
  explicit PatchedTree(Observer& observer) : observer_(&observer) {}
  PatchedTree(const PatchedTree&) = delete;
  PatchedTree& operator=(const PatchedTree&) = delete;

  /// Applies the patches in order, then sets the row indexes of the lists. Throws
  /// `std::out_of_range` at a change that names a missing node or an impossible place, inserts an
  /// existing node, or gives a list a number of rows that differs from the number of its children.
  /// The changes before that one stay applied; no part of that one is.
  void apply(const ui::Changes& changes);

  /// The root, or nullptr while nothing is shown.
  Node* root() { return root_; }
  const Node* root() const { return root_; }
  /// The node, or nullptr.
  Node* find(ui::NodeID id);
  const Node* find(ui::NodeID id) const;
  /// The number of nodes in the tree. Costs far less than a walk (`NodeTable::size`).
  std::size_t size() const { return nodes_.size(); }

 private:
  Node& at(ui::NodeID id);
  void placeRows(const ui::ListRows& rows);
  struct Place {
    Node* parent = nullptr;  // none: the node is the root
    Node* after = nullptr;   // none: first among its siblings
  };
  Place placeOf(const ui::Patch& patch);
  void link(Node& node, const Place& place);
  void unlink(Node& node);
  void erase(Node& node);

  Observer* observer_ = nullptr;
  ui::NodeTable<Node> nodes_;
  Node* root_ = nullptr;
};

/// Calls `visit` with each child of a list and its index among all rows.
template <class Visit>
void forEachRow(Node& list, const ui::ListRows& rows, const Visit& visit) {
  Node* row = list.firstChild;
  for (const ui::RowRange& range : rows.shown) {
    for (std::size_t index = range.first; index < range.last; ++index, row = row->next) {
      visit(*row, index);
    }
  }
}

}  // namespace vemra::page
