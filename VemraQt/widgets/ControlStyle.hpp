#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"

class QStyle;
class QWidget;

namespace vemra::qt {

class Theme;

/// Whether the style can draw controls in a palette of this colour scheme. Most styles draw in any
/// palette; some have colours of their own, so that a light title in a dark palette would stand on
/// a light button. Found out by drawing a button in a light and in a dark palette. Main thread only.
VEMRA_EXPORT bool canDrawIn(ui::ColorScheme scheme, const QStyle& style);

/// The style that draws and measures the buttons and pickers of a page with this theme: that of the
/// widget, or Fusion where that style cannot draw in the theme's colour scheme. Main thread only.
VEMRA_EXPORT QStyle& controlStyle(const QWidget& widget, const Theme& theme);

/// Qt's style Fusion, which draws in any palette and at any size. The same one for all controls. Main
/// thread only.
VEMRA_EXPORT QStyle& fusionStyle();

}  // namespace vemra::qt
