#pragma once

#include "VemraPlatform/page/Node.hpp"
#include "VemraPlatform/ui/NodeTable.hpp"
#include "VemraQt/widgets/TextShape.hpp"

namespace vemra::qt {

class ElementWidget;

/// What the window keeps of a text or a control, beside its place in the tree.
struct ShownLeaf {
  TextShape shape;  ///< its text, broken into lines for the width it was measured in
  ElementWidget* widget = nullptr;  ///< shows the element while it is near the viewport
  bool stale = true;                ///< the widget does not show the element as it was measured yet
};

/// One `ShownLeaf` for every leaf that has been measured.
class ShownLeaves {
 public:
  /// Makes one when there is none yet.
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
