#include "VemraQt/SystemEnvironment.hpp"

#include "VemraQt/QtStringsTable.hpp"
#include "VemraQt/Theme.hpp"

#include <QApplication>
#include <QLocale>

namespace vemra::qt {

ui::Environment systemEnvironment() {
  ui::Environment environment = ui::Environment::system();
  environment.strings = QtStringsTable::builtIn(QLocale::system().uiLanguages());
  environment.colorScheme = colorSchemeOf(QApplication::palette());
  environment.layoutDirection = QApplication::layoutDirection() == Qt::RightToLeft
                                    ? ui::LayoutDirection::rightToLeft
                                    : ui::LayoutDirection::leftToRight;
  return environment;
}

}  // namespace vemra::qt
