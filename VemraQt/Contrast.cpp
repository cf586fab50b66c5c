#include "VemraQt/Contrast.hpp"

#include <algorithm>
#include <cmath>

namespace vemra::qt {

namespace {

double luminance(const QColor& color) {
  const auto linear = [](double c) {
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
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
