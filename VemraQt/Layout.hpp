#pragma once

#include "VemraQt/RenderTree.hpp"

#include <QRect>
#include <QSize>

/// \file
/// Where everything stands: whole pixels, two passes, no state but what is kept in the nodes.
///
/// Measuring goes down with the width there is and comes back with the size that is taken; it stops
/// at every node that was measured for that width and has not changed since. Arranging gives each
/// leaf its frame. Spacing and padding are the tree's numbers, exactly.
///
/// A column takes as much width as its widest child and lets each child have all of its own. A row
/// of elements that does not fit its width goes on in a further line, so that nothing is ever cut
/// or pushed off the page. Groups, lists and composites add nothing: what they hold stands in
/// their parent, and a padding of theirs goes to each.
///
/// Everything is laid out from the leading edge; `mirrored` turns a frame for right-to-left.

namespace vemra::qt {

/// How large a leaf is within a width. May keep the text's lines in the node.
class LeafMetrics {
 public:
  virtual QSize measure(RenderNode& leaf, int width) const = 0;

 protected:
  ~LeafMetrics() = default;
};

/// Measures a scope (the page's root, or a row) in a width and, when it was not measured for that
/// width before, gives its leaves their frames, from its own top leading corner; and a windowed
/// list the frame that all its rows fill. `spacing` separates the children of a scope that has no
/// layout of its own.
QSize measureScope(RenderNode& scope, int width, int spacing, const LeafMetrics& metrics);

/// A frame turned about the middle of its scope.
QRect mirrored(const QRect& frame, int scopeWidth);

}  // namespace vemra::qt
