#include "VemraQt/Contrast.hpp"
#include "VemraQt/Theme.hpp"

#include <array>

#include <QApplication>
#include <gtest/gtest.h>

using namespace vemra;
using qt::contrast;
using qt::Theme;
using ui::ForegroundStyle;

namespace {

QPalette paletteOf(const QColor& ink, const QColor& page) {
  QPalette palette(ink, page, page, page, page, ink, page);
  palette.setColor(QPalette::Base, page);
  palette.setColor(QPalette::Text, ink);
  return palette;
}

ui::Environment inScheme(ui::ColorScheme scheme, double scale = 1) {
  ui::Environment environment;
  environment.colorScheme = scheme;
  environment.textScale = scale;
  return environment;
}

}  // namespace

TEST(Contrast, IsComputedAsInTheGuidelines) {
  EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.001);
  EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.478, 0.001);
  EXPECT_NEAR(contrast(Qt::red, Qt::red), 1, 0.001);
}

TEST(Theme, TheThreeLevelsAreReadableAndDistinctOnEveryPalette) {
  const std::array palettes{
      paletteOf(Qt::black, Qt::white),
      paletteOf(Qt::white, Qt::black),
      paletteOf(Qt::yellow, Qt::black),
      paletteOf(QColor(0x33, 0x33, 0x33), QColor(0xf5, 0xf5, 0xdc)),
      paletteOf(QColor(0xdd, 0xdd, 0xdd), QColor(0x22, 0x22, 0x33)),
      QApplication::palette(),
  };
  for (const QPalette& system : palettes) {
    for (auto scheme : {ui::ColorScheme::light, ui::ColorScheme::dark}) {
      const Theme theme(QFont(), system, inScheme(scheme));
      const QColor page = theme.background();
      const QColor primary = theme.text(ForegroundStyle::primary);
      const QColor secondary = theme.text(ForegroundStyle::secondary);
      const QColor tertiary = theme.text(ForegroundStyle::tertiary);
      EXPECT_GE(contrast(secondary, page), 4.5) << qPrintable(page.name());
      EXPECT_GE(contrast(tertiary, page), 4.5) << qPrintable(page.name());
      EXPECT_GE(contrast(theme.link(), page), 4.5) << qPrintable(page.name());
      EXPECT_GE(contrast(theme.focusRing(), page), 3) << qPrintable(page.name());
      EXPECT_GE(contrast(theme.outline(), page), 3) << qPrintable(page.name());
      EXPECT_GT(contrast(primary, page), contrast(secondary, page) + 0.5);
      EXPECT_GT(contrast(secondary, page), contrast(tertiary, page) + 0.5);
      EXPECT_EQ(qt::colorSchemeOf(theme.palette()), scheme);
    }
  }
}

TEST(Theme, ASystemPaletteOfTheRightSchemeIsUsedUnchanged) {
  const QPalette contrasty = paletteOf(Qt::yellow, Qt::black);
  const Theme theme(QFont(), contrasty, inScheme(ui::ColorScheme::dark));
  EXPECT_EQ(theme.text(ForegroundStyle::primary), QColor(Qt::yellow));
  EXPECT_EQ(theme.background(), QColor(Qt::black));
}

TEST(Theme, APageInTheOtherSchemeHasTheColoursOfThisSystem) {
  const auto colours = [](ui::ColorScheme scheme) {
    const bool isDark = scheme == ui::ColorScheme::dark;
    const QPalette other =
        isDark ? paletteOf(Qt::black, Qt::white) : paletteOf(Qt::white, Qt::black);
    const QPalette palette = Theme(QFont(), other, inScheme(scheme)).palette();
    QStringList names;
    for (const auto role : {QPalette::Base, QPalette::Window, QPalette::Button, QPalette::Text,
                            QPalette::Highlight, QPalette::HighlightedText}) {
      names.append(palette.color(QPalette::Active, role).name());
    }
    return names.join(' ').toStdString();
  };
  EXPECT_EQ(colours(ui::ColorScheme::light), "#ffffff #f3f3f4 #f3f3f4 #1b1c1e #1a66c8 #ffffff");
  EXPECT_EQ(colours(ui::ColorScheme::dark), "#1e1f22 #2b2d30 #3a3d41 #ecedee #4c9af0 #000000");
}

TEST(Theme, TextStylesAreRatiosOfTheSystemFont) {
  QFont system("DejaVu Sans");
  system.setPixelSize(26);
  const Theme theme(system, QPalette(), {});
  EXPECT_EQ(theme.font(ui::Font::title2).pixelSize(), 34);
  EXPECT_EQ(theme.font(ui::Font::headline).pixelSize(), 26);
  EXPECT_EQ(theme.font(ui::Font::body).pixelSize(), 26);
  EXPECT_EQ(theme.font(ui::Font::subheadline).pixelSize(), 22);
  EXPECT_EQ(theme.font(ui::Font::caption).pixelSize(), 20);
  EXPECT_EQ(theme.font(ui::Font::caption2).pixelSize(), 20);
  system.setPointSizeF(13);
  EXPECT_DOUBLE_EQ(Theme(system, QPalette(), {}).font(ui::Font::title2).pointSizeF(), 17);
}

TEST(Theme, WeightsAreTheStylesOwnUnlessSet) {
  const Theme theme;
  EXPECT_EQ(theme.font(ui::Font::title2).weight(), QFont::Normal);
  EXPECT_EQ(theme.font(ui::Font::headline).weight(), QFont::Bold);
  EXPECT_EQ(theme.font(ui::Font::caption2).weight(), QFont::Medium);
  EXPECT_EQ(theme.font(ui::Font::title2.weight(ui::FontWeight::semibold)).weight(),
            QFont::DemiBold);
  EXPECT_EQ(theme.font(ui::Font::body.weight(ui::FontWeight::medium)).weight(), QFont::Medium);
}

TEST(Theme, TextScaleMultiplies) {
  QFont system;
  system.setPixelSize(13);
  EXPECT_EQ(Theme(system, QPalette(), inScheme(ui::ColorScheme::light, 3))
                .font(ui::Font::caption)
                .pixelSize(),
            30);
}
