#pragma once

#include "VemraPlatform/ui/Element.hpp"
#include "VemraPlatform/ui/NodeID.hpp"

#include <cstdint>
#include <vector>

namespace vemra::ui {
struct Node;
}  // namespace vemra::ui

namespace vemra::qt {

class AccessibleObject;
class Page;

/// One element of a page or of a row as assistive technology sees it, and its accessible object
/// once a client has asked for it. Outside rows, lists and sections have slots too.
struct ElementSlot {
  std::uint64_t path = 0;  ///< the place in the page or row; constant as long as the identity is
  /// The path of the section around it; 0 directly in the page or in a row.
  std::uint64_t section = 0;
  ui::ElementKind kind = ui::ElementKind::text;
  ui::NodeID node;
  AccessibleObject* object = nullptr;
  /// \name The state last reported to clients @{
  bool enabled = true;
  std::size_t shown = 0;  ///< hash of the name, or of a picker's choice
  /// @}
};

/// The hash for `ElementSlot::shown`.
std::size_t hashOfShown(const ui::Element& element);

/// Whether the node is a section: a stack of several views that begins with a text in the headline
/// font.
bool isSection(const ui::Node& node);

/// The heading level of an element: 1 for a text in the title font, 2 for one in the headline font,
/// 0 for an element that is no heading.
int headingLevel(const ui::Element& element);

/// The elements under a node, in tree order; none when the node is gone. Outside rows a list is one
/// entry, and a section is an entry before its content. Inside a row, the rows of a list count as
/// ordinary content, and the graph is asked for missing ones.
std::vector<ElementSlot> elementsUnder(ui::NodeID node, Page& page);

/// The outermost row around a node, because all elements of a row are on one level; nullptr outside
/// lists.
const ui::Node* rowHolding(ui::NodeID node, const Page& page);

/// The row's node; the graph describes the row if needed. When that throws, the node is empty.
/// Returns no node when there is no such row, or when an event is being handled and the row has no
/// node yet.
ui::NodeID peekRow(ui::NodeID list, std::size_t index, Page& page);

}  // namespace vemra::qt
