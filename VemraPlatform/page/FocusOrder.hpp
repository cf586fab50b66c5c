#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/WindowedTree.hpp"

#include <cstddef>
#include <optional>

namespace vemra::page {

/// Brings rows of windowed lists into the tree while the focus is looked for.
class VEMRA_EXPORT RowSupply {
 public:
  /// The row, made to be there by scrolling to it; nullptr when it is not there now. May change the
  /// tree as patches do.
  virtual Node* bringRow(Node& list, std::size_t index) = 0;
  /// Whether rows come only after the search, so that a missing one may be there later.
  virtual bool rowsComeLater() const { return false; }

 protected:
  ~RowSupply() = default;
};

/// Where an element with the focus was when it went.
struct VEMRA_EXPORT LostPlace {
  ui::NodeID within;               ///< the parent of what went; none for the root
  ui::NodeID after;                ///< what stood before it in there; none: it was the first
  std::optional<std::size_t> row;  ///< when a row of `within` went: its index

  /// The place of a node that is about to go.
  static LostPlace of(const Node& node);
};

/// Whether the focus can be on the element: a control that is enabled.
VEMRA_EXPORT bool takesFocus(const Node& leaf);
/// Whether `node` is `holder` or stands in it. `node` may be nullptr, which stands nowhere.
VEMRA_EXPORT bool isInside(const Node* node, const Node& holder);

/// The order in which the focus goes through a page: tree order over all rows, there or not.
///
/// Rows on the way are brought in. A list without any control ends the search in it after 64 rows.
/// Where rows come later, a search stops at the first missing one and can be resumed when it is
/// there; so it gets on by a row each time, and never runs to and fro between rows.
class VEMRA_EXPORT FocusOrder {
 public:
  enum class Direction { forward, backward };
  /// Where a search stopped to wait for a row.
  struct Waiting {
    ui::NodeID list;
    std::size_t row;
    Direction direction;
    std::size_t rowsVisited;  ///< in this list
  };

  /// Both must outlive the object.
  FocusOrder(WindowedTree& tree, RowSupply& rows) : tree_(tree), rows_(rows) {}

  /// The control at the beginning of a subtree, or at its end; nullptr when there is none.
  Node* firstIn(Node& node, Direction direction = Direction::forward);
  /// The control after a node in tree order, or before it; nullptr at the end of the page.
  Node* next(Node& from, Direction direction);
  /// The control at a place where an element was lost, or else after it; or the one before it.
  /// nullptr when there is none, or when the parent has gone. At the place is the row with the lost
  /// index, or the last one; or what stands behind the same neighbour.
  Node* nextTo(const LostPlace& lost, Direction direction);
  /// Goes on where a search stopped; after the list it stopped in, with what comes after the list.
  Node* resume(const Waiting& waiting);

  /// Set when the last search returned nullptr because a row comes later.
  const std::optional<Waiting>& waiting() const { return waiting_; }

 private:
  Node* searchIn(Node& node, Direction direction);
  Node* searchFrom(Node& from, Direction direction);
  Node* searchSiblings(Node* first, Direction direction);
  Node* searchRows(const Waiting& from);

  WindowedTree& tree_;
  RowSupply& rows_;
  std::optional<Waiting> waiting_;
};

}  // namespace vemra::page
