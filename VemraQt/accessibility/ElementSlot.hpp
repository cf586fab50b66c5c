#pragma once

#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/NodeID.hpp"

#include <cstdint>
#include <vector>

namespace vemra::ui {
struct Node;
}  // namespace vemra::ui

namespace vemra::qt {

class AccessibleElement;
class Page;

/// One element of a page or of a row as assistive technology sees it, and the object that stands
/// for it once somebody has asked.
struct ElementSlot {
  std::uint64_t path = 0;  ///< its place in the page or row: the same as long as its identity is
  ui::ElementKind kind = ui::ElementKind::text;
  ui::NodeID node;
  AccessibleElement* object = nullptr;
  /// \name As clients last heard of it @{
  bool enabled = true;
  std::size_t shown = 0;  ///< a hash of its name, or of what is chosen in it
  /// @}
};

/// The hash for `ElementSlot::shown`.
std::size_t hashOfShown(const ui::Element& element);

/// The elements under a node, in tree order. Outside rows a list is one entry of its own; inside a
/// row, its rows are like other content, and are asked for if they are not there. None under a node
/// that is gone.
std::vector<ElementSlot> elementsUnder(ui::NodeID node, Page& page);

/// The outermost row around a node, since what is in a row is all on one level; nullptr outside lists.
const ui::Node* rowHolding(ui::NodeID node, const Page& page);

/// The row's node, described for a look if need be: an empty one when that throws. None when there
/// is no such row, or no answer while an event is being handled.
ui::NodeID lookAtRow(ui::NodeID list, std::size_t index, Page& page);

}  // namespace vemra::qt
