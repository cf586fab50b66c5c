#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/PatchedTree.hpp"

#include <exception>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace vemra::page {

/// The patched tree of a page. It knows which lists are windowed, keeps the heights of their rows
/// when the rows change, and discards the measurements that a patch makes wrong.
///
/// A renderer requests the rows of a *windowed* list by range. A list is windowed when its rows
/// stand one below the other and no other layout depends on them: in a column of the page itself. A
/// list beside other elements, inside a row or inside a picker is shown whole.
class VEMRA_EXPORT WindowedTree final : private PatchedTree::Observer {
 public:
  /// `removing` is called with a node right before the node is removed, while its subtree is in
  /// place.
  explicit WindowedTree(std::function<void(Node&)> removing)
      : removing_(std::move(removing)), tree_(*this) {}
  WindowedTree(const WindowedTree&) = delete;
  WindowedTree& operator=(const WindowedTree&) = delete;

  /// Applies the changes. Rethrows exceptions of reading a list's ids after all changes have been
  /// applied.
  void apply(const ui::Changes& changes);

  /// The top node; nullptr while the tree is empty.
  Node* root() { return tree_.root(); }
  const Node* root() const { return tree_.root(); }
  /// The node with that id; nullptr when the tree has none.
  Node* find(ui::NodeID id) { return tree_.find(id); }
  const Node* find(ui::NodeID id) const { return tree_.find(id); }
  /// The windowed lists, in no particular order.
  const std::vector<Node*>& lists() const { return lists_; }
  /// The lists that are shown whole, including those in pickers. The page requests all their rows.
  const std::vector<Node*>& wholeLists() const { return wholeLists_; }

  /// Discards the measurements of a node and of all nodes around it.
  void invalidate(Node& node);
  /// Discards every measurement, because the sizes of all leaves may have changed.
  void invalidateAll();

 private:
  void inserted(Node& node) override;
  void updated(Node& node) override;
  void rowsPlaced(Node& list, const ui::ListRows& rows) override;
  void childrenChanged(Node& parent) override;
  void removing(Node& node) override;
  void forgetLists(Node& node);

  std::function<void(Node&)> removing_;
  std::vector<Node*> lists_, wholeLists_;
  /// For each windowed list, the rows that its heights belong to.
  std::unordered_map<ui::NodeID, std::shared_ptr<const ui::RowIDs>> measured_;
  std::exception_ptr error_;
  PatchedTree tree_;
};

}  // namespace vemra::page
