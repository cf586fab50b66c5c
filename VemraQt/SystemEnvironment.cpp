#include "VemraQt/SystemEnvironment.hpp"

#include "VemraQt/QtStringsTable.hpp"
#include "VemraQt/Theme.hpp"

#include <QApplication>
#include <QLocale>
#include <QWidget>

namespace vemra::qt {
namespace {

ui::LayoutDirection fromQt(Qt::LayoutDirection direction) {
  return direction == Qt::RightToLeft ? ui::LayoutDirection::rightToLeft
                                      : ui::LayoutDirection::leftToRight;
}

}  // namespace

ui::Environment systemEnvironment() {
  ui::Environment environment = ui::Environment::system();
  environment.strings = QtStringsTable::builtIn(QLocale::system().uiLanguages());
  environment.colorScheme = colorSchemeOf(QApplication::palette());
  environment.layoutDirection = fromQt(QApplication::layoutDirection());
  return environment;
}

ui::Environment environmentAround(const QWidget& widget) {
  ui::Environment environment = systemEnvironment();
  environment.colorScheme = colorSchemeOf(inheritedPalette(widget));
  if (!widget.isWindow()) {
    environment.layoutDirection = fromQt(widget.parentWidget()->layoutDirection());
  }
  return environment;
}

}  // namespace vemra::qt
