#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/WindowedTree.hpp"

#include <cstddef>
#include <optional>

namespace vemra::page {

/// Gets rows of windowed lists into the tree during a search for the focus.
class VEMRA_EXPORT RowSupply {
 public:
  /// Returns the row, and scrolls to it to get it into the tree; nullptr when the tree cannot get
  /// it now. May change the tree as patches do.
  virtual Node* bringRow(Node& list, std::size_t index) = 0;
  /// Whether rows arrive only after the search, so that a missing row may exist later.
  virtual bool rowsComeLater() const { return false; }

 protected:
  ~RowSupply() = default;
};

/// The place of a removed element that had the focus.
struct VEMRA_EXPORT LostPlace {
  ui::NodeID within;               ///< the parent of the removed node; none for the root
  ui::NodeID after;                ///< the sibling before the removed node; none: it was the first
  std::optional<std::size_t> row;  ///< when the removed node was a row of `within`: its index

  /// The place of a node that is about to be removed.
  static LostPlace of(const Node& node);
};

/// Whether the element can have the focus: whether it is an enabled control.
VEMRA_EXPORT bool takesFocus(const Node& leaf);
/// Whether `node` is `holder` or inside it. False when `node` is nullptr.
VEMRA_EXPORT bool isInside(const Node* node, const Node& holder);

/// The order in which the focus moves through a page: tree order over all rows, with nodes or
/// without.
///
/// A search gets rows without nodes into the tree. In a list it examines at most 64 rows without
/// finding a control. Where rows arrive later, a search stops at the first missing row and can be
/// resumed when the row is there; so it advances by a row each time, and never alternates between
/// two rows.
class VEMRA_EXPORT FocusOrder {
 public:
  /// The direction of a step: to the next control in tree order, or to the previous one.
  enum class Direction { forward, backward };
  /// The row that a search waits for.
  struct Waiting {
    ui::NodeID list;          ///< the `ForEach` with the row
    std::size_t row;          ///< the index of the row among all rows of the list
    Direction direction;      ///< the direction in which the search continues
    std::size_t rowsVisited;  ///< rows of this list that were searched
  };

  /// `tree` and `rows` must outlive the object.
  FocusOrder(WindowedTree& tree, RowSupply& rows) : tree_(tree), rows_(rows) {}

  /// The first control of a subtree, or the last one (`backward`); nullptr when there is none.
  Node* firstIn(Node& node, Direction direction = Direction::forward);
  /// The next or previous control in tree order; nullptr at the end of the page.
  Node* next(Node& from, Direction direction);
  /// The first control of the next or previous row of a windowed list that has one, beginning with
  /// that row; nullptr at the end of the list.
  Node* firstOfRows(Node& list, std::size_t row, Direction direction);
  /// The control for a lost focus: at the place or after it (`forward`), or before it (`backward`).
  /// At the place means the row with the lost index, or the last row; or the node behind the same
  /// sibling. nullptr when there is none, or when the parent has been removed.
  Node* nextTo(const LostPlace& lost, Direction direction);
  /// Resumes a search that waited; after the end of its list, continues with the nodes behind the
  /// list.
  Node* resume(const Waiting& waiting);

  /// Set when the last search returned nullptr because a row arrives later.
  const std::optional<Waiting>& waiting() const { return waiting_; }

 private:
  Node* searchIn(Node& node, Direction direction);
  Node* searchFrom(Node& from, Direction direction);
  Node* searchSiblings(Node* first, Direction direction);
  /// Searches at most 64 rows of a list, from the given row on; `within` decides which control of a
  /// row it takes, the first or the last one.
  Node* searchRows(const Waiting& from, Direction within);

  WindowedTree& tree_;
  RowSupply& rows_;
  std::optional<Waiting> waiting_;
};

}  // namespace vemra::page
