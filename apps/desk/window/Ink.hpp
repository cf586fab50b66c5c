#pragma once

#include "VemraPlatform/ui/Font.hpp"
#include "VemraQt/Theme.hpp"

#include <QColor>
#include <QPalette>

namespace vemra::desk {

/// The fonts and colours of the screen under a palette, so that both look like one window.
qt::Theme themeOf(const QPalette& palette);

/// The colour of a text level, equal to that of the screen under the same palette.
QColor inkOf(ui::ForegroundStyle style, const QPalette& palette);

}  // namespace vemra::desk
