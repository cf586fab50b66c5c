#include "VemraGallery/Colours.hpp"

#include "VemraQt/HighContrast.hpp"

#include <QApplication>

namespace vemra::gallery {

ui::ColorScheme schemeOf(Colours colours) {
  return colours == Colours::light ? ui::ColorScheme::light : ui::ColorScheme::dark;
}

PaletteSwitch::PaletteSwitch() : system_(QApplication::palette()) {}

void PaletteSwitch::set(Colours colours) {
  const QPalette palette = colours == Colours::highContrast ? qt::highContrastPalette() : system_;
  if (QApplication::palette() != palette) QApplication::setPalette(palette);
}

}  // namespace vemra::gallery
