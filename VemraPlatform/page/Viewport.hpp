#pragma once

#include "VemraPlatform/page/Geometry.hpp"

namespace vemra::page {

/// The visible part of a page.
struct Viewport {
  /// The extent of the visible part.
  int width = 0, height = 0;
  int position = 0;  ///< how far the page is scrolled: the viewport's top edge on the page

  /// Whether the viewport, extended by `margin` upwards and downwards, shows a part of the frame.
  bool shows(const Rect& frame, int margin = 0) const {
    return frame.bottom() > position - margin && frame.y < position + height + margin;
  }
};

/// The margins around the viewport, in the units of its frames. The defaults are in pixels.
struct Margins {
  int ask = 96;    ///< rows this near get nodes before a small step brings them into view
  int keep = 288;  ///< rows and leaves this near stay, so that small steps keep them
  int air = 12;    ///< space above and below an element that is scrolled into view
};

}  // namespace vemra::page
