#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Viewport.hpp"
#include "VemraPlatform/page/WindowedTree.hpp"
#include "VemraPlatform/ui/Environment.hpp"

#include <cstddef>

namespace vemra::page {

/// Where the elements of a tree that has been laid out are on the whole page, from its top left
/// corner, for the given reading direction.
class VEMRA_EXPORT Frames {
 public:
  /// The tree must outlive the object. The grid is that of the layout.
  Frames(const WindowedTree& tree, ui::LayoutDirection direction, const Grid& grid = {})
      : tree_(tree), direction_(direction), grid_(grid) {}

  Rect of(const Node& leaf) const;
  /// The frame of a row of a windowed list, whether or not the row is there. A height that has not
  /// been measured is estimated.
  Rect ofRow(const Node& list, std::size_t index) const;

 private:
  const WindowedTree& tree_;
  ui::LayoutDirection direction_;
  Grid grid_;
};

/// How far the page must be scrolled to show the leaf, with its whole row when that fits, moving as
/// little as possible from where the viewport is.
VEMRA_EXPORT int positionShowing(const Node& leaf, const Frames& frames, const Viewport& viewport,
                                 int air);

}  // namespace vemra::page
