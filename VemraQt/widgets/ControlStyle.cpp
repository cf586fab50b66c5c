#include "VemraQt/widgets/ControlStyle.hpp"

#include "VemraQt/Theme.hpp"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QWidget>

namespace vemra::qt {

namespace {

QColor faceOfAButton(const QStyle& style, const QColor& color) {
  QImage picture(40, 40, QImage::Format_RGB32);
  picture.fill(Qt::gray);
  QStyleOptionButton option;
  option.rect = picture.rect();
  option.state = QStyle::State_Enabled | QStyle::State_Raised | QStyle::State_Active;
  option.palette = QPalette(color);
  QPainter painter(&picture);
  style.drawControl(QStyle::CE_PushButtonBevel, &option, &painter);
  painter.end();
  return picture.pixelColor(picture.rect().center());
}

bool followsPalettes(const QStyle& style) {
  // The controls of a program have one style, so the last answer is enough.
  static QPointer<const QStyle> asked;
  static bool answer = true;
  if (asked != &style) {
    asked = &style;
    answer = faceOfAButton(style, Qt::white) != faceOfAButton(style, Qt::black);
  }
  return answer;
}

}  // namespace

bool canDrawIn(ui::ColorScheme scheme, const QStyle& style) {
  // The style that Qt makes for a style sheet draws what the sheet says.
  if (style.inherits("QStyleSheetStyle") || followsPalettes(style)) return true;
  return colorSchemeOf(style.standardPalette()) == scheme;
}

QStyle& controlStyle(const QWidget& widget, const Theme& theme) {
  QStyle& own = *widget.style();
  return canDrawIn(colorSchemeOf(theme.palette()), own) ? own : fusionStyle();
}

QStyle& fusionStyle() {
  static QPointer<QStyle> fusion;
  if (!fusion) {
    fusion = QStyleFactory::create(QStringLiteral("fusion"));
    fusion->setParent(qApp);
  }
  return *fusion;
}

}  // namespace vemra::qt
