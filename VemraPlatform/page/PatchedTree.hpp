#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Node.hpp"
#include "VemraPlatform/ui/NodeTable.hpp"
#include "VemraPlatform/ui/Patch.hpp"

#include <cstddef>

namespace vemra::page {

/// The tree that patches describe: what every renderer has to keep, kept once.
///
/// It knows only what a renderer is handed, so that it holds what any renderer would come to. A node stays where it is
/// in memory until a patch removes it.
class VEMRA_EXPORT PatchedTree {
 public:
  /// Learns of every change when it has happened, and of a removal before. Must not throw.
  class VEMRA_EXPORT Observer {
   public:
    virtual void inserted(Node&) {}
    virtual void updated(Node&) {}
    /// The children of a list stand at these places among its rows. Called before their `rowIndex` is
    /// set, after all patches.
    virtual void rowsPlaced(Node& /*list*/, const ui::ListRows&) {}
    /// A child came, went, or changed its place.
    virtual void childrenChanged(Node& /*parent*/) {}
    /// The node and everything below it go; they are still in their places.
    virtual void removing(Node&) {}

   protected:
    ~Observer() = default;
  };

  PatchedTree() = default;
  /// `observer` must outlive the tree. It hears nothing when the tree is destroyed.
  explicit PatchedTree(Observer& observer) : observer_(&observer) {}
  PatchedTree(const PatchedTree&) = delete;
  PatchedTree& operator=(const PatchedTree&) = delete;

  /// Carries the patches out in order, then numbers the rows of the lists. Throws `std::out_of_range`
  /// at a change that speaks of a node that is not there, inserts one that is, or gives a list another
  /// number of rows than it has children; those before it have been carried out.
  void apply(const ui::Changes& changes);

  /// The root, or nullptr while nothing is shown.
  Node* root() { return root_; }
  const Node* root() const { return root_; }
  /// The node, or nullptr.
  Node* find(ui::NodeID id);
  const Node* find(ui::NodeID id) const;
  /// How many nodes the tree has. Costs far less than a walk (`NodeTable::size`).
  std::size_t size() const { return nodes_.size(); }

 private:
  Node& at(ui::NodeID id);
  void placeRows(const ui::ListRows& rows);
  void link(Node& node, ui::NodeID parent, ui::NodeID after);
  void unlink(Node& node);
  void erase(Node& node);

  Observer* observer_ = nullptr;
  ui::NodeTable<Node> nodes_;
  Node* root_ = nullptr;
};

/// Calls `visit` with each child of a list and its place among all rows.
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
