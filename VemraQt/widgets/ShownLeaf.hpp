#pragma once

#include "VemraPlatform/page/Node.hpp"
#include "VemraPlatform/ui/NodeTable.hpp"
#include "VemraQt/widgets/TextShape.hpp"

#include <optional>
#include <vector>

namespace vemra::qt {

class ElementWidget;

/// The data that the window keeps for a text or a control, apart from its place in the tree.
struct ShownLeaf {
  TextShape shape;  ///< the text in lines, broken for the measured width
  /// A long text in the lines of the widths before, the last one first.
  std::vector<TextShape> otherWidths;
  ElementWidget* widget = nullptr;      ///< shows the element while that is near the viewport
  bool stale = true;                    ///< the widget does not show the measured element yet
  std::optional<ui::Element> longText;  ///< the element whose text all shapes have, if it is long
};

/// One `ShownLeaf` for every leaf that has been measured.
class ShownLeaves {
 public:
  /// Returns the leaf's entry, made if needed.
  ShownLeaf& of(const page::Node& leaf) {
    ShownLeaf* const found = leaves_.find(leaf.id);
    return found ? *found : leaves_.insert(leaf.id, {});
  }
  const ShownLeaf* find(const page::Node& leaf) const { return leaves_.find(leaf.id); }
  void erase(const page::Node& leaf) { leaves_.erase(leaf.id); }

 private:
  ui::NodeTable<ShownLeaf> leaves_;
};

}  // namespace vemra::qt
