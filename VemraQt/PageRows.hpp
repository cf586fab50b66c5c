#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/NodeID.hpp"

#include <cstddef>
#include <optional>

#include <QRect>

/// \file
/// The rows of a list in a `ViewWidget`, for a host that searches in its data and shows what it has
/// found. A row is named by its list, an element of the kind `forEach`, and by its index among all
/// rows; it needs no elements yet. The shown tree and its state stay as they are. Main thread only.

namespace vemra::qt {

class ViewWidget;

/// Scrolls a row into view, only as far as needed. Returns whether there is such a row.
VEMRA_EXPORT bool revealRow(ViewWidget& widget, ui::NodeID list, std::size_t index);

/// Gives the keyboard focus to the first control of a row, or to the nearest control, and scrolls
/// it into view. Returns whether there is such a row.
VEMRA_EXPORT bool focusRow(ViewWidget& widget, ui::NodeID list, std::size_t index);

/// The frame of a row in the coordinates of the viewport; a height that has not been measured is
/// estimated. Empty when there is no such row.
VEMRA_EXPORT QRect rowFrame(const ViewWidget& widget, ui::NodeID list, std::size_t index);

/// The row of that list at the top of the viewport, or the nearest one; nil for a list without
/// rows.
VEMRA_EXPORT std::optional<std::size_t> rowAtTop(const ViewWidget& widget, ui::NodeID list);

/// The place in a page where a reader is: what is in view, and the control with the focus.
struct ReadingPlace {
  /// A row of a list.
  struct Row {
    ui::NodeID list;        ///< the `ForEach` of the row
    std::size_t index = 0;  ///< its index among all rows of the list
  };
  int scroll = 0;                ///< of the page
  std::optional<Row> top;        ///< the row at the top of the viewport
  int offset = 0;                ///< from the top of that row to the top of the viewport
  std::optional<Row> focusRow;   ///< the row with the focus
  std::size_t controlInRow = 0;  ///< counts the texts and controls of that row
  ui::NodeID focus;              ///< the control with the focus, in a list or outside
};

/// The place that the reader sees, for `returnTo`. Main thread only.
VEMRA_EXPORT ReadingPlace readingPlace(const ViewWidget& widget);
/// Gives the focus back to the control that had it at a place, and scrolls only as far as needed to
/// show it. If the control is gone and was in a row, the focus goes into that row. Returns whether
/// a control has the focus afterwards.
VEMRA_EXPORT bool returnFocusTo(ViewWidget& widget, const ReadingPlace& place);
/// Scrolls back to a place, and gives the focus back to the control that had it there.
VEMRA_EXPORT void returnTo(ViewWidget& widget, const ReadingPlace& place);

}  // namespace vemra::qt
