#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

#include <cstddef>

/// \file
/// The actions of clients on an element, visible or not. When the page has no nodes for the
/// element's row, these functions scroll the row into view. Each may remove accessible objects.

namespace vemra::qt {

class Page;

/// The place of a row; `list` is none for an element outside lists.
struct RowPlace {
  ui::NodeID list;
  std::size_t index = 0;
};

/// Scrolls an element into view and gives it the focus if it can have it. Returns whether it took
/// it.
bool focus(Page& page, RowPlace row, ui::NodeID node);
void scrollIn(Page& page, RowPlace row, ui::NodeID node);

}  // namespace vemra::qt
