#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Frames.hpp"

#include <cstddef>
#include <vector>

namespace vemra::page {

/// What must not move under the reader's eye while the page is laid out anew.
///
/// Made before a change, it notes the elements in the viewport and where they stand; asked after the
/// change, it says how far to scroll so that the first of them that is still there stands where it
/// stood. When a change comes while the focused element is in view, that element is the first.
class VEMRA_EXPORT Anchor {
 public:
  enum class Reason {
    changed,        ///< patches will change the tree
    resized,        ///< the page will have another width, or its elements other sizes
    scrolled,       ///< a person scrolled; estimated heights will be measured
    scrolledToEnd,  ///< the same, to the very end: it stays the end
  };

  /// \param focused The element that has the focus, or nullptr.
  Anchor(Reason reason, const WindowedTree& tree, const Frames& frames, const Viewport& viewport,
         const Node* focused);

  /// How far to scroll, now that the tree has been laid out anew. May be beyond the page's end.
  int position(const WindowedTree& tree, const Frames& frames, const Viewport& viewport) const;

 private:
  /// An element and where it stood, from the top of the viewport.
  struct Point {
    ui::NodeID node;
    int top;
    int height;
  };
  enum class Kind {
    top,     // the page's top stays at the top
    bottom,  // the page's end stays at the end
    inside,  // the first of `points_` that is still there stays where it is, or else the row
  };

  Kind kind_ = Kind::top;
  std::vector<Point> points_;
  ui::NodeID list_;
  std::size_t row_ = 0;  // of the list: the row at the top of the viewport
  int offset_ = 0;       // how much of it is above the viewport
};

}  // namespace vemra::page
