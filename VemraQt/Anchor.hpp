#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

#include <cstddef>
#include <vector>

namespace vemra::qt {

/// Why the page is laid out anew.
enum class AnchorReason { changed, resized, scrolled };

/// What must not move under the reader's eye while heights are corrected.
struct Anchor {
  /// An element and where it stood, in pixels from the top of the viewport.
  struct Point {
    ui::NodeID node;
    int top;
    int height;
  };
  enum class Kind {
    top,     ///< the page's top stays at the top
    bottom,  ///< the reader jumped to the very end
    inside,  ///< the first of `points` that is still there, else the row, stays where it is
  };
  Kind kind = Kind::top;
  std::vector<Point> points;
  ui::NodeID list;
  std::size_t row = 0;  ///< of the list: the row at the top of the viewport
  int offset = 0;       ///< how much of it is above the viewport
};

}  // namespace vemra::qt
