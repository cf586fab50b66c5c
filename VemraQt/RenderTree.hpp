#pragma once

#include "VemraPlatform/page/RowHeights.hpp"
#include "VemraPlatform/ui/Patch.hpp"
#include "VemraQt/TextShape.hpp"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include <QRect>
#include <QSize>

/// \file
/// What the window remembers of the tree: one node per patch-inserted element, with its layout.

namespace vemra::qt {

class ElementWidget;

/// One element on its way to the screen.
///
/// Frames are kept relative to a *scope*: the row the node stands in, or the whole page. So a row
/// that moves, and there are many in a list that is scrolled or corrected, costs one addition.
struct RenderNode {
  RenderNode(ui::NodeID newID, ui::Element newElement)
      : id(newID), element(std::move(newElement)) {}

  ui::NodeID id;
  RenderNode* parent = nullptr;
  std::vector<RenderNode*> children;
  ui::Element element;

  /// Of a row in a windowed list: its place among all rows. Kept by `RenderTree`'s owner.
  std::size_t rowIndex = 0;
  /// Of the same: a larger number the later the focus was in it; 0: it never was.
  std::uint64_t focusedAt = 0;
  /// Of a `ForEach` whose rows are asked for by range; none for other nodes.
  std::unique_ptr<page::RowHeights> rows;
  int rowWidth = -1;  ///< the width its rows were measured for

  int measuredWidth = -1;  ///< the width `size` was measured for; -1: not measured
  QSize size;
  QRect frame;  ///< in its scope, from the leading edge (mirrored when placed)
  TextShape shape;

  ElementWidget* widget = nullptr;  ///< shows the element while it is near the viewport
  bool stale = true;                ///< the widget does not show `element` yet

  bool isLeaf() const;
  /// Adds no layout of its own: what it holds stands in its parent.
  bool isTransparent() const;
  bool isRow() const { return parent && parent->rows; }
};

/// The nodes, as patches make them.
class RenderTree {
 public:
  /// `leaving` is told of a node that goes, right before, while its subtree is still whole.
  explicit RenderTree(std::function<void(RenderNode&)> leaving) : leaving_(std::move(leaving)) {}
  RenderTree(const RenderTree&) = delete;
  RenderTree& operator=(const RenderTree&) = delete;

  /// Throws when a list's ids cannot be read, after all patches are applied.
  void apply(const std::vector<ui::Patch>& patches);

  RenderNode* root() const { return root_; }
  RenderNode* find(ui::NodeID id) const;
  /// The windowed lists, in no particular order.
  const std::vector<RenderNode*>& lists() const { return lists_; }
  /// The other lists outside pickers: all their rows are wanted.
  const std::vector<RenderNode*>& wholeLists() const { return wholeLists_; }

  /// Forgets what was measured of the node and of all that hold it.
  static void invalidate(RenderNode* node);
  /// Forgets every measure: another width, font or style.
  void invalidateAll();

 private:
  void place(RenderNode& node, ui::NodeID parent, ui::NodeID after);
  void takeOut(RenderNode& node);
  void erase(RenderNode& node);

  std::function<void(RenderNode&)> leaving_;
  std::unordered_map<ui::NodeID, std::unique_ptr<RenderNode>> nodes_;
  std::vector<RenderNode*> lists_, wholeLists_;
  RenderNode* root_ = nullptr;
};

/// The row that holds the node, the node itself included; nullptr outside windowed lists.
RenderNode* rowOf(RenderNode* node);

/// Calls `visit` for the leaves under `node` in tree order, pickers' own rows left out.
template <class Visit>
void forEachLeaf(RenderNode& node, Visit&& visit) {
  if (node.isLeaf()) {
    visit(node);
    return;
  }
  for (RenderNode* child : node.children) forEachLeaf(*child, visit);
}

}  // namespace vemra::qt
