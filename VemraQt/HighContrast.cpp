#include "VemraQt/HighContrast.hpp"

#include <QColor>

namespace vemra::qt {

QPalette highContrastPalette() {
  const QColor faint(0x3f, 0xf2, 0x3f);
  QPalette palette(Qt::white, Qt::black, Qt::white, Qt::white, Qt::gray, Qt::white, Qt::white,
                   Qt::black, Qt::black);
  palette.setColor(QPalette::ButtonText, Qt::white);
  palette.setColor(QPalette::Highlight, QColor(0x1a, 0xeb, 0xff));
  palette.setColor(QPalette::HighlightedText, Qt::black);
  palette.setColor(QPalette::Link, Qt::yellow);
  palette.setColor(QPalette::PlaceholderText, Qt::white);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  return palette;
}

}  // namespace vemra::qt
