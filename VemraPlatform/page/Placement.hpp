#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Frames.hpp"
#include "VemraPlatform/page/WantedRows.hpp"

#include <vector>

namespace vemra::page {

/// A leaf that is drawn, and where.
struct Placement {
  const Node* leaf;
  Rect frame;  ///< on the whole page; subtract the scroll position for the viewport
};

/// Which leaves a renderer draws, and which no longer.
struct Placements {
  std::vector<Placement> placed;      ///< in tree order
  std::vector<const Node*> released;  ///< were drawn before
};

/// Decides which leaves are drawn, and notes it in each (`Node::isPlaced`): those in the viewport or
/// nearer to it than `margin`; and of those that were drawn before, the focused one and all in
/// pinned rows, which stay wherever the page is scrolled. The tree must be laid out.
VEMRA_EXPORT Placements placeLeaves(WindowedTree& tree, const Frames& frames,
                                    const Viewport& viewport, int margin, const PinnedRows& pinned,
                                    const Node* focused);

}  // namespace vemra::page
