#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/PatchedTree.hpp"

#include <exception>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace vemra::page {

/// The patched tree of a page: it knows which lists are windowed, keeps the heights of their rows
/// when the rows change, and forgets the measures that a patch makes wrong.
///
/// A list is *windowed*, so that a renderer asks for its rows by range, where rows stand one below
/// the other and nothing else depends on them: in a column of the page itself. A list beside
/// something, inside a row or inside a picker is shown whole.
class VEMRA_EXPORT WindowedTree final : private PatchedTree::Observer {
 public:
  /// `removing` is called with a node right before it goes, while everything below it is in place.
  explicit WindowedTree(std::function<void(Node&)> removing)
      : removing_(std::move(removing)), tree_(*this) {}
  WindowedTree(const WindowedTree&) = delete;
  WindowedTree& operator=(const WindowedTree&) = delete;

  /// Carries out the changes. Throws what reading a list's ids throws, after all of them have been
  /// carried out.
  void apply(const ui::Changes& changes);

  Node* root() { return tree_.root(); }
  const Node* root() const { return tree_.root(); }
  Node* find(ui::NodeID id) { return tree_.find(id); }
  const Node* find(ui::NodeID id) const { return tree_.find(id); }
  /// The windowed lists, in no particular order.
  const std::vector<Node*>& lists() const { return lists_; }
  /// The lists that are shown whole, those in pickers too. All their rows are wanted.
  const std::vector<Node*>& wholeLists() const { return wholeLists_; }

  /// Forgets every measure: the sizes of all leaves may have changed.
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
  /// Of each windowed list: the rows that its heights are of.
  std::unordered_map<ui::NodeID, std::shared_ptr<const ui::RowIDs>> measured_;
  std::exception_ptr error_;
  PatchedTree tree_;
};

}  // namespace vemra::page
