#pragma once

#include "VemraPlatform/page/Layout.hpp"

#include <algorithm>
#include <ostream>

namespace vemra::page {

inline void PrintTo(const Size& size, std::ostream* out) {
  *out << size.width << " x " << size.height;
}
inline void PrintTo(const Rect& rect, std::ostream* out) {
  *out << rect.width << " x " << rect.height << " at " << rect.x << ", " << rect.y;
}

namespace sample {

/// Every character is ten wide and a line twenty high; buttons are two higher, fields take the
/// whole width.
class BoxyMetrics final : public LeafMetrics {
 public:
  Size measure(const Node& leaf, int width) override {
    const int length = static_cast<int>(leaf.element.shownLabel().size()) * 10;
    const int lines = std::max(1, (length + width - 1) / width);
    Size size{std::min(length, width), lines * 20};
    if (leaf.element.kind() == ui::ElementKind::button) size.height += 2;
    if (leaf.element.kind() == ui::ElementKind::textField) size.width = width;
    return size;
  }
};

}  // namespace sample
}  // namespace vemra::page
