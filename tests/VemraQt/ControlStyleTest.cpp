// Which style draws the controls of a page.

#include "VemraQt/Theme.hpp"
#include "VemraQt/widgets/ControlStyle.hpp"

#include <memory>

#include <QPainter>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QWidget>
#include <gtest/gtest.h>

using namespace vemra;
using ui::ColorScheme;

namespace {

/// A style that draws its buttons in light grey in every palette.
class LightStyle final : public QProxyStyle {
 public:
  LightStyle() : QProxyStyle("fusion") {}
  QPalette standardPalette() const override { return QPalette(QColor(0xee, 0xee, 0xee)); }
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    if (element == CE_PushButtonBevel) return painter->fillRect(option->rect, Qt::lightGray);
    QProxyStyle::drawControl(element, option, painter, widget);
  }
};

qt::Theme themeOf(ColorScheme scheme) {
  ui::Environment environment;
  environment.colorScheme = scheme;
  return {QFont(), QPalette(QColor(0xee, 0xee, 0xee)), environment};
}

}  // namespace

TEST(ControlStyle, AStyleThatIgnoresPalettesDrawsOnlyInItsOwnScheme) {
  const LightStyle light;
  EXPECT_TRUE(qt::canDrawIn(ColorScheme::light, light));
  EXPECT_FALSE(qt::canDrawIn(ColorScheme::dark, light));
  const std::unique_ptr<QStyle> windows(QStyleFactory::create("windows"));
  EXPECT_TRUE(qt::canDrawIn(ColorScheme::light, *windows));
  EXPECT_TRUE(qt::canDrawIn(ColorScheme::dark, *windows));
}

TEST(ControlStyle, FusionDrawsThePageInTheSchemeThatTheStyleOfTheWidgetCannotDraw) {
  LightStyle light;
  QWidget widget;
  widget.setStyle(&light);
  EXPECT_EQ(&qt::controlStyle(widget, themeOf(ColorScheme::light)), &light);
  EXPECT_EQ(&qt::controlStyle(widget, themeOf(ColorScheme::dark)), &qt::fusionStyle());
  EXPECT_EQ(qt::fusionStyle().name(), "fusion");
}
