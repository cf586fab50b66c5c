#include "VemraQt/SystemEnvironment.hpp"

#include "VemraQt/Looks.hpp"

#include <QApplication>

namespace vemra::qt {

ui::Environment systemEnvironment() {
  ui::Environment environment = ui::Environment::system();
  environment.colorScheme = colorSchemeOf(QApplication::palette());
  environment.layoutDirection = QApplication::layoutDirection() == Qt::RightToLeft
                                    ? ui::LayoutDirection::rightToLeft
                                    : ui::LayoutDirection::leftToRight;
  return environment;
}

}  // namespace vemra::qt
