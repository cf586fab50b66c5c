#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"

class QWidget;

namespace vemra::qt {

/// Reads the current settings of the system: the user's locale, time zone and language, the colour
/// scheme of the application's palette and its layout direction. The text scale is 1, because the
/// page already uses the system's font size. Needs a QApplication.
VEMRA_EXPORT ui::Environment systemEnvironment();

/// The system's settings where a widget is: with the colour scheme and the layout direction that it
/// inherits from its parent widget. Those of a window are the application's. Main thread only.
VEMRA_EXPORT ui::Environment environmentAround(const QWidget& widget);

}  // namespace vemra::qt
