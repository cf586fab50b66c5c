#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Frames.hpp"
#include "VemraPlatform/page/Layout.hpp"

#include <cstddef>
#include <optional>
#include <vector>

namespace vemra::page {

/// Keeps the reader's place on the page while the page is laid out anew.
///
/// Its constructor, called before a change, notes the elements in the viewport and their positions.
/// `position`, called after the change, returns the scroll position at which the first of these
/// elements that still exists has its old place. When patches change the tree while the focused
/// element is in view, that element comes first.
class VEMRA_EXPORT Anchor {
 public:
  /// The change that the page is about to make.
  enum class Reason {
    changed,        ///< patches will change the tree
    resized,        ///< the page will have another width, or its elements will have other sizes
    scrolled,       ///< a person scrolled; rows with estimated heights will be measured
    scrolledToEnd,  ///< a person scrolled to the very end: stay at the end
  };

  /// \param focused The element that has the focus, or nullptr.
  /// \param metrics Knows the parts of tall leaves.
  Anchor(Reason reason, const WindowedTree& tree, const Frames& frames, const Viewport& viewport,
         const Node* focused, const LeafMetrics& metrics);

  /// The new scroll position, after the tree has been laid out. May be beyond the page's end.
  int position(const WindowedTree& tree, const Frames& frames, const Viewport& viewport,
               const LeafMetrics& metrics) const;

 private:
  /// An element and its position, relative to the top of the viewport.
  struct Point {
    ui::NodeID node;
    int top;
    int height;
    /// The part of a tall leaf at the top of the viewport, and its position.
    std::optional<std::size_t> part;
    int topOfPart = 0;
  };
  int topOf(const Point& point, const Node& node, const Rect& frame,
            const LeafMetrics& metrics) const;

  enum class Kind {
    top,     // the page's top stays at the top
    bottom,  // the page's end stays at the end
    inside,  // the first existing element of `points_` stays in place, else the row
  };

  Kind kind_ = Kind::top;
  std::vector<Point> points_;
  ui::NodeID list_;
  std::size_t row_ = 0;  // the list's row at the top of the viewport
  int offset_ = 0;       // how much of that row is above the viewport
};

}  // namespace vemra::page
