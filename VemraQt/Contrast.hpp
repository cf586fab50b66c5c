#pragma once

#include "VemraPlatform/Export.hpp"

#include <QColor>

namespace vemra::qt {

/// The contrast ratio of two opaque colours, 1 to 21 (Web Content Accessibility Guidelines 2.2,
/// "contrast ratio").
VEMRA_EXPORT double contrast(const QColor& a, const QColor& b);

/// Returns `color`, moved towards `strong` only as far as needed to reach `ratio` on `background`.
/// Returns `strong` when even that does not reach the ratio.
VEMRA_EXPORT QColor readable(const QColor& color, const QColor& strong, const QColor& background,
                             double ratio);

}  // namespace vemra::qt
