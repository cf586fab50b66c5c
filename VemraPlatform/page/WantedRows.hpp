#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Viewport.hpp"
#include "VemraPlatform/page/WindowedTree.hpp"

#include <vector>

namespace vemra::page {

/// A request for the rows of a list.
struct RowRequest {
  ui::NodeID list;                   ///< the `ForEach` whose rows are requested
  std::vector<ui::RowRange> ranges;  ///< ascending; they do not touch
};

/// Rows that stay although they are away from the viewport, in addition to rows with a text field.
struct PinnedRows {
  const Node* focused = nullptr;  ///< contains the element with the focus
  const Node* next = nullptr;     ///< contains the element that gets the focus next
};

/// Whether the row stays wherever the page is scrolled: a widget has state that its element does
/// not contain, such as the cursor and the undo history of a text field.
VEMRA_EXPORT bool isPinned(const Node& row, const PinnedRows& pinned);

/// The rows that a windowed list should have: those in and near the viewport, the pinned rows, and,
/// of the rows with a text field, the sixteen that had the focus last.
VEMRA_EXPORT std::vector<ui::RowRange> wantedRows(const Node& list, const Viewport& viewport,
                                                  const Margins& margins, const PinnedRows& pinned);

/// The requests to the graph: the wanted rows of every list that should have other rows now. Empty
/// when every wanted row is present.
VEMRA_EXPORT std::vector<RowRequest> rowRequests(const WindowedTree& tree, const Viewport& viewport,
                                                 const Margins& margins, const PinnedRows& pinned);

}  // namespace vemra::page
