#include "apps/desk/window/Ink.hpp"

namespace vemra::desk {

qt::Theme themeOf(const QPalette& palette) {
  ui::Environment environment;
  environment.colorScheme = qt::colorSchemeOf(palette);
  return {{}, palette, environment};
}

QColor inkOf(ui::ForegroundStyle style, const QPalette& palette) {
  return themeOf(palette).text(style);
}

}  // namespace vemra::desk
