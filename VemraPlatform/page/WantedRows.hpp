#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Viewport.hpp"
#include "VemraPlatform/page/WindowedTree.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <vector>

namespace vemra::page {

/// The rows that a list is asked for.
struct RowRequest {
  ui::NodeID list;
  std::vector<ui::RowRange> ranges;  ///< ascending; they do not touch
};

/// Rows that stay although they are away from the viewport, beside those with a text field.
struct PinnedRows {
  const Node* focused = nullptr;  ///< holds the element with the focus
  const Node* next = nullptr;     ///< holds the element that gets the focus next
};

/// Whether the row stays wherever the page is scrolled: a widget remembers what an element cannot
/// say, such as the cursor and the undo history of a text field.
VEMRA_EXPORT bool isPinned(const Node& row, const PinnedRows& pinned);

/// The rows of a windowed list that should be there: those in and near the viewport, the pinned
/// rows, and of the rows with a text field the sixteen that had the focus last.
VEMRA_EXPORT std::vector<ui::RowRange> wantedRows(const Node& list, const Viewport& viewport,
                                                  const Margins& margins, const PinnedRows& pinned);

/// What to ask the graph for: the wanted rows of every list whose rows are others now. Empty when
/// every row that should be there is.
VEMRA_EXPORT std::vector<RowRequest> rowRequests(const WindowedTree& tree, const Viewport& viewport,
                                                 const Margins& margins, const PinnedRows& pinned);

}  // namespace vemra::page
