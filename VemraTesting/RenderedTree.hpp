#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/PatchedTree.hpp"
#include "VemraPlatform/ui/Patch.hpp"

#include <cstddef>
#include <vector>

namespace vemra::testing {

/// The smallest renderer: applies the patches to a tree of nodes, and demands every row.
///
/// Throws `std::out_of_range` for a patch with an unknown node.
class VEMRA_EXPORT RenderedTree final : public ui::Renderer {
 public:
  /// An element with its parent and its children, without a layout.
  using Node = page::Node;

  ui::RowDemand rowDemand() const override { return ui::RowDemand::everything; }
  void apply(const ui::Changes& changes) override;

  /// The root, or nullptr while nothing is shown.
  const Node* root() const { return tree_.root(); }
  /// The node with that id; nullptr when the tree has none.
  const Node* find(ui::NodeID id) const { return tree_.find(id); }
  /// All nodes in tree order, from the root.
  std::vector<const Node*> nodes() const;
  /// The number of patches received so far.
  std::size_t patchCount() const { return patchCount_; }

 private:
  page::PatchedTree tree_;
  std::size_t patchCount_ = 0;
};

}  // namespace vemra::testing
