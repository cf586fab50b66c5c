#include "VemraPlatform/page/Placement.hpp"

namespace vemra::page {

Placements placeLeaves(WindowedTree& tree, const Frames& frames, const Viewport& viewport,
                       int margin, const PinnedRows& pinned, const Node* focused) {
  Placements placements;
  if (!tree.root()) return placements;
  forEachLeaf(*tree.root(), [&](Node& leaf) {
    const Rect frame = frames.of(leaf);
    const Node* const row = rowOf(&leaf);
    const bool wasPlaced = leaf.isPlaced;
    leaf.isPlaced = viewport.shows(frame, margin) ||
                    (wasPlaced && (row ? isPinned(*row, pinned) : &leaf == focused));
    if (leaf.isPlaced) placements.placed.push_back({&leaf, frame});
    if (wasPlaced && !leaf.isPlaced) placements.released.push_back(&leaf);
  });
  return placements;
}

}  // namespace vemra::page
