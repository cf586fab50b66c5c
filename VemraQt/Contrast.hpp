#pragma once

#include <QColor>

namespace vemra::qt {

/// The contrast ratio of two opaque colours, 1 to 21 (Web Content Accessibility Guidelines 2.2,
/// "contrast ratio").
double contrast(const QColor& a, const QColor& b);

/// `color`, moved towards `strong` just as far as it takes to reach `ratio` on `background`.
/// When `strong` does not reach it either, `strong`.
QColor readable(const QColor& color, const QColor& strong, const QColor& background, double ratio);

}  // namespace vemra::qt
