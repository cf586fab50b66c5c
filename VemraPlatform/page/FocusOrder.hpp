#pragma once

#include "VemraPlatform/page/WindowedTree.hpp"

#include <cstddef>
#include <optional>

namespace vemra::page {

/// Brings rows of windowed lists into the tree while the focus is looked for.
class RowSupply {
 public:
  /// The row, made to be there by scrolling to it; nullptr when that is not possible now. May change
  /// the tree as patches do.
  virtual Node* bringRow(Node& list, std::size_t index) = 0;

 protected:
  ~RowSupply() = default;
};

/// Where an element with the focus was when it went.
struct LostPlace {
  ui::NodeID within;               ///< the parent of what went; none for the root
  ui::NodeID after;                ///< what stood before it in there; none: it was the first
  std::optional<std::size_t> row;  ///< when a row of `within` went: its index

  /// The place of a node that is about to go.
  static LostPlace of(const Node& node);
};

/// Whether the focus can be on the element: a control that is enabled.
bool takesFocus(const Node& leaf);
/// Whether `node` is `holder` or stands in it. `node` may be nullptr, which stands nowhere.
bool isInside(const Node* node, const Node& holder);

/// The order in which the focus goes through a page: tree order over all rows, there or not.
///
/// Rows on the way are brought in. A list without any control ends the search in it after 64 rows.
class FocusOrder {
 public:
  enum class Direction { forward, backward };

  /// Both must outlive the object.
  FocusOrder(WindowedTree& tree, RowSupply& rows) : tree_(tree), rows_(rows) {}

  /// The control at the beginning of a subtree, or at its end; nullptr when there is none.
  Node* firstIn(Node& node, Direction direction = Direction::forward);
  /// The control after a node in tree order, or before it; nullptr at the end of the page.
  Node* next(Node& from, Direction direction);
  /// The first control of what stands now where an element was lost: in the row at the lost index or
  /// the last one, or behind the same neighbour; nullptr when there is none.
  Node* inPlaceOf(const LostPlace& lost);

 private:
  Node* firstInList(Node& list, Direction direction);
  Node* nextInList(Node& row, Direction direction);

  WindowedTree& tree_;
  RowSupply& rows_;
};

}  // namespace vemra::page
