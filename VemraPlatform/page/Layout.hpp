#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Node.hpp"

/// \file
/// Where everything stands: whole units, two passes, no state but what is kept in the nodes.
///
/// Measuring goes down with the width there is and comes back with the size that is taken; it stops
/// at every node that was measured for that width and has not changed since. Arranging gives each
/// leaf its frame. Spacing and padding are the tree's numbers, exactly, in whole units of the grid.
///
/// A column takes as much width as its widest child and lets each child have all of its own. A row
/// of elements that does not fit its width goes on in a further line, so that nothing is ever cut
/// or pushed off the page. Groups, lists and composites add nothing: what they hold stands in
/// their parent, and a padding of theirs goes to each.
///
/// Everything is laid out from the leading edge; `mirrored` turns a frame for right-to-left.

namespace vemra::page {

/// A node's padding in units of the grid.
VEMRA_EXPORT ui::Insets paddingIn(const Grid& grid, const Node& node);

/// How large a renderer draws a text or a control.
class VEMRA_EXPORT LeafMetrics {
 public:
  /// The size of a leaf that may be `width` wide, 1 or more. Called again only when the leaf, a leaf
  /// below it or the width has changed, or after `WindowedTree::invalidateAll`; so a renderer may
  /// keep the broken lines of the text until it draws them.
  virtual Size measure(const Node& leaf, int width) = 0;
  /// The units that the renderer draws in. Always the same.
  virtual Grid grid() const { return {}; }

 protected:
  ~LeafMetrics() = default;
};

/// Measures a scope (the page's root, or a row) in a width and, when it was not measured for that
/// width before, gives its leaves their frames, from its own top leading corner; and a windowed
/// list the frame that all its rows fill. `spacing` separates the children of a scope that has no
/// layout of its own.
VEMRA_EXPORT Size measureScope(Node& scope, int width, int spacing, LeafMetrics& metrics);

}  // namespace vemra::page
