#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

#include <span>
#include <vector>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

/// One step that turns a list of children into another.
///
/// A step names a neighbour, not an index: an index would also count the items that later steps
/// move away, so that a list of steps with indexes looks right and fails for about one pair of
/// lists in ten. A test counts these failures.
struct ListOperation {
  enum class Kind { insert, move, remove };
  Kind kind;
  NodeID item;
  NodeID after;  ///< the item comes right after this one; none: it comes first
  friend bool operator==(const ListOperation&, const ListOperation&) = default;
};

/// Computes the steps that turn `before` into `after`, in order: first the removals, then the
/// insertions and moves from front to back. Neither list may contain an item twice.
///
/// The number of moves is minimal (the items of a longest increasing subsequence stay), so that the
/// focused item rarely moves.
std::vector<ListOperation> diff(std::span<const NodeID> before, std::span<const NodeID> after);

}  // namespace vemra::ui
