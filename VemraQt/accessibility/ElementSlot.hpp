#pragma once

#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/NodeID.hpp"

#include <cstdint>
#include <vector>

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

}  // namespace vemra::qt
