#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Viewport.hpp"
#include "VemraPlatform/page/WindowedTree.hpp"
#include "VemraPlatform/ui/Environment.hpp"

#include <cstddef>

namespace vemra::page {

/// The frames of the elements of a laid-out tree, relative to the top left corner of the page, for
/// the given reading direction.
class VEMRA_EXPORT Frames {
 public:
  /// The tree must outlive the object. The grid must be that of the layout.
  Frames(const WindowedTree& tree, ui::LayoutDirection direction, const Grid& grid = {})
      : tree_(tree), direction_(direction), grid_(grid) {}

  /// The frame of a leaf, without its padding. The leaf must have been measured.
  Rect of(const Node& leaf) const;
  /// The frame of a row of a windowed list, with the padding of the row and of the list; also of a
  /// row without nodes. A height that has not been measured is estimated.
  Rect ofRow(const Node& list, std::size_t index) const;

 private:
  const WindowedTree& tree_;
  ui::LayoutDirection direction_;
  Grid grid_;
};

/// The scroll position that shows the leaf, with its whole row if that fits, as near as possible to
/// the present position.
VEMRA_EXPORT int positionShowing(const Node& leaf, const Frames& frames, const Viewport& viewport,
                                 int air);

}  // namespace vemra::page
