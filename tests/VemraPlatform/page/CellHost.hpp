#pragma once

#include "VemraPlatform/page/Page.hpp"
#include "tests/VemraPlatform/page/Boxes.hpp"

#include <algorithm>
#include <exception>
#include <map>
#include <vector>

namespace vemra::page::sample {

/// A host without pixels: it records the drawn leaves and the focus. A scroll bar takes ten units
/// of its width while the page is longer than the viewport.
class CellHost final : public PageHost {
 public:
  explicit CellHost(ui::ViewGraph& graph, Margins margins = {}) : page(graph, *this, margins) {
    graph.attach(page);
  }

  Size measure(const Node& leaf, int width) override {
    ++measured;
    const Size cells = metrics_.measure(leaf, std::max(1, width / scale));
    return {std::min(width, cells.width * scale), cells.height * scale};
  }
  bool isShown() const override { return isSeen; }
  Size viewportSize() const override {
    return hasBar ? Size{size.width - bar.width, size.height - bar.height} : size;
  }
  void showScrollRange(int newMaximum, int newPosition) override {
    maximum = newMaximum;
    position = newPosition;
    hasBar = maximum > 0;
  }
  void expectScrolling() override { hasBar = true; }
  void scrollTo(int wanted) override {
    const int clamped = std::clamp(wanted, 0, maximum);
    if (clamped == position) return;
    position = clamped;
    page.scrolled(clamped);
  }
  void environmentChanged(const ui::Environment& environment) override {
    if (followsTextScale) scale = static_cast<int>(environment.textScale);
    environments.push_back(environment);
  }
  void place(const Placements& placements) override {
    for (const Node* leaf : placements.released) drawn.erase(leaf->id);
    for (const Placement& each : placements.placed) drawn[each.leaf->id] = each.frame;
    placed += placements.placed.size();
  }
  void removing(Node& node) override {
    forEachLeaf(node, [&](const Node& leaf) { drawn.erase(leaf.id); });
  }
  ui::NodeID focused() const override { return focusedElement; }
  void giveFocus(const Node& control, FocusReason) override {
    if (refusesFocus) {
      ++refused;
      return;
    }
    focusedElement = control.id;
    landed.push_back(control.id);
    landedWell = landedWell && page.tree().find(control.id) == &control && takesFocus(control);
  }
  void loseFocus() override {
    focusedElement = {};
    ++vain;
  }
  void atRest() override { ++rests; }
  void failed(std::exception_ptr error) override { errors.push_back(std::move(error)); }

  void resize(Size newSize) {
    size = newSize;
    page.resized();
  }
  void setScale(int newScale) {
    scale = newScale;
    page.restyled();
  }

  Size size{200, 300};
  Size bar{10, 0};  ///< the width of the scroll bar
  int scale = 1;
  bool followsTextScale = false;
  bool isSeen = true;
  bool refusesFocus = false;
  int refused = 0;  ///< how often it refused the focus
  bool hasBar = false;
  int maximum = 0, position = 0;
  std::map<ui::NodeID, Rect> drawn;  ///< on the whole page
  ui::NodeID focusedElement;
  std::vector<ui::NodeID> landed;         ///< every element that got the focus
  bool landedWell = true;                 ///< each of those existed and was enabled
  std::uint64_t placed = 0;               ///< leaves drawn, in all passes together
  int measured = 0, rests = 0, vain = 0;  ///< `vain`: how often no control took a lost focus
  std::vector<ui::Environment> environments;
  std::vector<std::exception_ptr> errors;

 private:
  BoxyMetrics metrics_;

 public:
  Page page;  ///< last, because it uses the host while it lives
};

}  // namespace vemra::page::sample
