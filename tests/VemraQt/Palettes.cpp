#include "tests/VemraQt/Palettes.hpp"

#include <QApplication>
#include <QStyle>

namespace vemra::qttest {

AsBefore::AsBefore()
    : style(QApplication::style()->name()),
      palette(QApplication::palette()),
      font(QApplication::font()),
      styleObject_(QApplication::style()) {}

AsBefore::~AsBefore() {
  if (QApplication::style() != styleObject_) QApplication::setStyle(style);
  QApplication::setPalette(palette);
  QApplication::setFont(font);
}

}  // namespace vemra::qttest
