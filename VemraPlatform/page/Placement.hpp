#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Frames.hpp"
#include "VemraPlatform/page/WantedRows.hpp"

#include <vector>

namespace vemra::page {

/// A leaf that is drawn, and its frame.
struct Placement {
  const Node* leaf;  ///< the element to draw
  /// On the whole page, without padding, mirrored when the page reads from right to left. Subtract
  /// the scroll position from `y` for the place in the viewport.
  Rect frame;
};

/// The leaves that a renderer draws, and those that it no longer draws.
struct Placements {
  std::vector<Placement> placed;      ///< in tree order
  std::vector<const Node*> released;  ///< drawn before, now no longer
};

/// Decides which leaves are drawn, and stores the decision in each leaf (`Node::isPlaced`). These
/// are the leaves in the viewport or nearer to it than `margin`; and, of the leaves that were drawn
/// before, the focused leaf and all leaves in pinned rows, wherever the page is scrolled. The tree
/// must be laid out.
VEMRA_EXPORT Placements placeLeaves(WindowedTree& tree, const Frames& frames,
                                    const Viewport& viewport, int margin, const PinnedRows& pinned,
                                    const Node* focused);

}  // namespace vemra::page
