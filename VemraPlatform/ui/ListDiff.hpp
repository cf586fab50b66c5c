#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

#include <span>
#include <vector>

namespace vemra::ui {

/// One step of turning a list of children into another.
///
/// Places are named by neighbour, never by index: what still has to move away counts in an index
/// too, so that a list of index-placed steps looks right and goes wrong on one pair of lists in ten
/// or so. A test keeps the count.
struct ListOperation {
  enum class Kind { insert, move, remove };
  Kind kind;
  NodeID item;
  NodeID after;  ///< the item stands right behind this one; none: it is the first
  friend bool operator==(const ListOperation&, const ListOperation&) = default;
};

/// The steps that turn `before` into `after`, to be carried out in order: removals first, then
/// insertions and moves from the front to the back. Neither list may hold an item twice.
///
/// Moves are as few as they can be (all but a longest increasing run stays put), so that what holds
/// the focus is rarely what moves.
std::vector<ListOperation> diff(std::span<const NodeID> before, std::span<const NodeID> after);

}  // namespace vemra::ui
