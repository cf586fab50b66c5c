#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Geometry.hpp"
#include "VemraPlatform/page/RowHeights.hpp"
#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/NodeID.hpp"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <ranges>
#include <utility>

namespace vemra::page {

template <class AnyNode>
class ChildrenOf;

/// One element at its place in the rendered tree, and its layout on the page.
///
/// `PatchedTree` makes and links the nodes. Siblings are a linked list, so a patch costs the same
/// among any number of them. `measureScope` fills in the layout; it is empty in a tree without a
/// layout. Frames are relative to a *scope*: the row of a windowed list that contains the node, or
/// the whole page. So moving a row, which happens to many rows when a list scrolls or an estimated
/// height is corrected, costs one addition.
struct VEMRA_EXPORT Node {
  /// A node outside any tree, without children.
  Node(ui::NodeID newID, ui::Element newElement) : id(newID), element(std::move(newElement)) {}

  /// \name The tree
  /// @{
  ui::NodeID id;
  ui::Element element;
  Node* parent = nullptr;
  Node* previous = nullptr;
  Node* next = nullptr;
  Node* firstChild = nullptr;
  Node* lastChild = nullptr;
  std::size_t childCount = 0;
  /// For a row of a `ForEach`: its index among all rows; `nowhere` until the list's `ui::ListRows`
  /// arrive.
  std::size_t rowIndex = nowhere;
  static constexpr std::size_t nowhere = static_cast<std::size_t>(-1);
  /// @}

  /// \name Rows of windowed lists
  /// @{
  std::unique_ptr<RowHeights> rows;  ///< for a `ForEach` whose rows are requested by range
  int rowWidth = -1;                 ///< for the same: the width that its rows were measured for
  std::uint64_t focusedAt = 0;       ///< for a row: larger the later it had the focus; 0: never
  /// @}

  /// \name The layout
  /// @{
  int leastWidth = 0;      ///< in a line of an HStack, with padding: see `measureScope`
  int leastWidthIn = -1;   ///< the width of the HStack that `leastWidth` is for
  int measuredWidth = -1;  ///< the width `size` was measured for, with padding; -1: not measured
  Size size;               ///< with padding
  Rect frame;              ///< without padding; relative to its scope, from the leading edge
  bool isPlaced = false;   ///< for a leaf: a renderer draws it (`placeLeaves`)
  /// @}

  /// The children, in order. They may not be inserted or removed while they are iterated.
  ChildrenOf<Node> children();
  ChildrenOf<const Node> children() const;

  /// Whether a renderer shows this element as one unit, without elements below it: a text or a
  /// control.
  bool isLeaf() const;
  /// Whether the element adds no layout: its children stand in its parent.
  bool isTransparent() const;
  /// Whether this is a row of a list whose rows are requested by range; false for a row of a list
  /// that is shown whole.
  bool isWindowedRow() const { return parent && parent->rows; }
};

/// The children of a node in order; also iterates backwards. `AnyNode` is `Node` or `const Node`.
template <class AnyNode>
class ChildrenOf : public std::ranges::view_interface<ChildrenOf<AnyNode>> {
 public:
  /// Walks the children in either direction (`std::bidirectional_iterator`).
  class Iterator {
   public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = Node;
    using difference_type = std::ptrdiff_t;
    using pointer = AnyNode*;
    using reference = AnyNode&;

    Iterator() = default;
    /// At `child` of `parent`; a null `child` is the place behind the last one.
    Iterator(AnyNode* parent, AnyNode* child) : parent_(parent), child_(child) {}

    /// The child.
    reference operator*() const { return *child_; }
    /// The child.
    pointer operator->() const { return child_; }
    Iterator& operator++() { return child_ = child_->next, *this; }
    Iterator& operator--() {
      child_ = child_ ? child_->previous : parent_->lastChild;
      return *this;
    }
    Iterator operator++(int) { return std::exchange(*this, std::next(*this)); }
    Iterator operator--(int) { return std::exchange(*this, std::prev(*this)); }
    friend bool operator==(const Iterator& a, const Iterator& b) { return a.child_ == b.child_; }

   private:
    AnyNode* parent_ = nullptr;
    AnyNode* child_ = nullptr;  // none: past the last child
  };

  /// The children of `parent`, which must outlive the object.
  explicit ChildrenOf(AnyNode& parent) : parent_(&parent) {}
  /// The first child.
  Iterator begin() const { return {parent_, parent_->firstChild}; }
  /// The place behind the last child.
  Iterator end() const { return {parent_, nullptr}; }
  /// The number of children.
  std::size_t size() const { return parent_->childCount; }

 private:
  AnyNode* parent_;
};

inline ChildrenOf<Node> Node::children() {
  return ChildrenOf<Node>(*this);
}
inline ChildrenOf<const Node> Node::children() const {
  return ChildrenOf<const Node>(*this);
}

/// The row of a windowed list that contains the node, or is the node; nullptr outside such lists.
VEMRA_EXPORT Node* rowOf(Node* node);
VEMRA_EXPORT const Node* rowOf(const Node* node);

/// Calls `visit` for the leaves under `node` in tree order, except the rows inside pickers.
template <class AnyNode, class Visit>
void forEachLeaf(AnyNode& node, const Visit& visit) {
  if (node.isLeaf()) {
    visit(node);
    return;
  }
  for (AnyNode& child : node.children()) forEachLeaf(child, visit);
}

}  // namespace vemra::page

/// \cond
// The range only refers to the parent, so its iterators may outlive it.
template <class AnyNode>
inline constexpr bool std::ranges::enable_borrowed_range<vemra::page::ChildrenOf<AnyNode>> = true;
/// \endcond
