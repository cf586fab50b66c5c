#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Environment.hpp"

namespace vemra::qt {

/// What the system asks for now: the user's locale, time zone and language, the colour scheme of
/// the application's palette and its layout direction. The text scale is 1: the system's font size
/// is taken up as it is. Needs a QApplication.
VEMRA_EXPORT ui::Environment systemEnvironment();

}  // namespace vemra::qt
