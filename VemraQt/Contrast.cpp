#include "VemraQt/Contrast.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace vemra::qt {

namespace {

/// How much light each of the 256 levels of a channel gives.
std::array<double, 256> linearLevels() {
  std::array<double, 256> levels{};
  for (std::size_t level = 0; level < levels.size(); ++level) {
    const double c = static_cast<double>(level) / 255;
    levels[level] = c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  }
  return levels;
}

double luminance(const QColor& color) {
  // A search for a readable colour compares dozens, and every page searches for five.
  static const std::array<double, 256> linear = linearLevels();
  const auto of = [](int level) { return linear[static_cast<std::size_t>(level)]; };
  return 0.2126 * of(color.red()) + 0.7152 * of(color.green()) + 0.0722 * of(color.blue());
}

QColor mixed(const QColor& a, const QColor& b, int percent) {
  const auto mix = [percent](int x, int y) { return x + (y - x) * percent / 100; };
  return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

}  // namespace

double contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

QColor readable(const QColor& color, const QColor& strong, const QColor& background, double ratio) {
  for (int percent = 0; percent < 100; ++percent) {
    const QColor candidate = mixed(color, strong, percent);
    if (contrast(candidate, background) >= ratio) return candidate;
  }
  return strong;
}

}  // namespace vemra::qt
