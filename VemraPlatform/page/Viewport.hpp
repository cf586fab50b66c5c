#pragma once

#include "VemraPlatform/page/Geometry.hpp"

namespace vemra::page {

/// The part of a page that a person sees.
struct Viewport {
  int width = 0, height = 0;
  int position = 0;  ///< how far the page is scrolled: where the viewport's top edge is on it

  /// Whether it shows a part of the frame, or would if it reached `margin` further up and down.
  bool shows(const Rect& frame, int margin = 0) const {
    return frame.bottom() > position - margin && frame.y < position + height + margin;
  }
};

/// How far a page looks beyond its viewport, in the units of its frames. The default is for pixels.
struct Margins {
  int ask = 96;  ///< rows this near are there before a small step brings them into view
  int keep =
      288;       ///< what is this near stays, so that small steps do not swap it for its neighbours
  int air = 12;  ///< left above and below an element that is scrolled into view
};

}  // namespace vemra::page
