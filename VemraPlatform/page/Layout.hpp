#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/page/Node.hpp"

#include <cstddef>
#include <optional>

/// \file
/// The layout of a page: whole units, two passes, no state except in the nodes.
///
/// Measuring passes the available width down and returns the size that each node takes; it skips
/// every node that was measured for that width and has not changed since. Arranging gives each leaf
/// its frame. Spacing and padding are the numbers of the elements, converted to whole units of the
/// grid.
///
/// The padding of a node is part of its `size` and of its `measuredWidth`, but not of its `frame`:
/// a frame is what the renderer draws. `LeafMetrics::measure` gets and returns sizes without
/// padding. The exception is a windowed list, whose padding belongs to each of its rows: it is part
/// of the row's height in `RowHeights`, and not of the list's own `size` or `frame`.
///
/// A column is as wide as its widest child and offers each child its whole width. A row of elements
/// is broken into lines with its text fields at their narrowest; the fields of a line, and columns
/// with fields, then share the room that is left in it, each at most as wide as it would be alone.
/// So a row continues in a further line only when it has to, and nothing is ever cut off or pushed
/// off the page. Groups, lists and composites add nothing: their children stand in their
/// parent, and their padding applies to each child.
///
/// Everything is laid out from the leading edge; `mirrored` converts a frame for right-to-left.

namespace vemra::page {

/// A node's padding in units of the grid.
VEMRA_EXPORT ui::Insets paddingIn(const Grid& grid, const Node& node);

/// Measures the texts and controls of a renderer.
class VEMRA_EXPORT LeafMetrics {
 public:
  /// The size of a leaf that may be `width` wide, at least 1, both without padding. The result may
  /// be wider than `width` when the leaf cannot be narrower. Called again only when the leaf, a
  /// leaf below it or the width has changed, or after `WindowedTree::invalidateAll`; so a renderer
  /// may keep the lines of the text until it draws them.
  virtual Size measure(const Node& leaf, int width) = 0;
  /// \name Parts of a tall leaf
  /// A renderer may estimate the height of a very long text, and lay out only the lines in view
  /// (`PageHost::arranged`). The page keeps the part at the top of the viewport in place. A part is
  /// a number of the renderer, such as the offset of the first character in a line.
  /// @{
  /// The part at a distance from the leaf's top; nil when the page may assume that all parts of the
  /// leaf keep their proportion.
  virtual std::optional<std::size_t> partAt(const Node& leaf, int y) const {
    static_cast<void>(leaf), static_cast<void>(y);
    return std::nullopt;
  }
  /// The distance of a part from the leaf's top, estimated where it is not laid out; nil when the
  /// leaf no longer has such parts.
  virtual std::optional<int> topOfPart(const Node& leaf, std::size_t part) const {
    static_cast<void>(leaf), static_cast<void>(part);
    return std::nullopt;
  }
  /// @}
  /// The width that a text field keeps when it shares a line with other elements, without padding,
  /// as long as the page is as wide. May depend on the field's font, never on its text.
  virtual int narrowestField(const Node& field) {
    static_cast<void>(field);
    return grid().across(120);
  }
  /// The units of the renderer. Must not change.
  virtual Grid grid() const { return {}; }

 protected:
  ~LeafMetrics() = default;
};

/// Measures a scope (the page's root, or a row) for a width. If it was not measured for that width
/// before, this also gives its leaves, and windowed lists with all their rows, their frames,
/// relative to the scope's top leading corner. `spacing` separates the children of a scope that has
/// no layout of its own.
VEMRA_EXPORT Size measureScope(Node& scope, int width, int spacing, LeafMetrics& metrics);

}  // namespace vemra::page
