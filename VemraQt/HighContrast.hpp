#pragma once

#include "VemraPlatform/Export.hpp"

#include <QPalette>

namespace vemra::qt {

/// A palette as a desktop in high contrast has it, to show or to test views in it: white on black,
/// with buttons as black as the page, and green for what is disabled.
VEMRA_EXPORT QPalette highContrastPalette();

}  // namespace vemra::qt
