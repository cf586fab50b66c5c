#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <cmath>

#include <QPalette>

namespace vemra::desk {
namespace {

/// The relative luminance of a colour (WCAG 2.1).
double luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const double lighter = std::max(luminance(a), luminance(b));
  return (lighter + 0.05) / (std::min(luminance(a), luminance(b)) + 0.05);
}

QPalette darkPalette() {
  QPalette dark(QColor(60, 60, 64), QColor(45, 45, 48));
  dark.setColor(QPalette::Base, QColor(30, 30, 32));
  dark.setColor(QPalette::AlternateBase, QColor(55, 55, 58));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    dark.setColor(role, QColor(235, 235, 235));
  }
  return dark;
}

class ColoursTest : public OpenDesk {
 protected:
  ~ColoursTest() override { QApplication::setPalette(before); }

  /// Compares every text beside the screen with the background of its pane.
  void expectReadable() const {
    int seen = 0;
    for (const auto* label : window->findChildren<QLabel*>()) {
      if (!label->isVisible() || window->screen().isAncestorOf(label)) continue;
      const QWidget* ground = label;
      while (!ground->autoFillBackground() && !ground->isWindow()) ground = ground->parentWidget();
      const QColor ink = label->palette().color(label->foregroundRole());
      const QColor paper = ground->palette().color(ground->backgroundRole());
      EXPECT_GE(contrast(ink, paper), 4.5)
          << label->text().toStdString() << ": " << ink.name().toStdString() << " on "
          << paper.name().toStdString();
      ++seen;
    }
    EXPECT_GT(seen, 2) << "the tree must have content";
  }

  void openEverything() {
    GoalStore::open(file).import(sampleGoals());
    open();
    pressTitled("Søren Ångström");
    ASSERT_NE(wait<QWidget>("desk.side"), nullptr);
  }

  const QPalette before = QApplication::palette();
};

TEST_F(ColoursTest, TextsAreReadableOnLightPages) {
  openEverything();
  expectReadable();
}

TEST_F(ColoursTest, TextsAreReadableOnDarkPages) {
  QApplication::setPalette(darkPalette());
  openEverything();
  expectReadable();
}

TEST_F(ColoursTest, TheWelcomeIsReadableOnDarkPages) {
  QApplication::setPalette(darkPalette());
  open();
  ASSERT_NE(wait<QAbstractButton>("desk.addSampleGoals"), nullptr);
  expectReadable();
}

TEST_F(ColoursTest, TextsFollowTheUserFromLightToDarkAndBack) {
  openEverything();
  QApplication::setPalette(darkPalette());
  pass(50);
  expectReadable();
  QApplication::setPalette(before);
  pass(50);
  expectReadable();
}

TEST_F(ColoursTest, TheTitleOfTheOpenGoalIsReadable) {
  QPalette pale = before;
  pale.setColor(QPalette::Highlight, QColor(0x9c, 0xc9, 0xe8));
  QPalette dim = darkPalette();
  dim.setColor(QPalette::Highlight, QColor(0x50, 0x50, 0x50));
  dim.setColor(QPalette::HighlightedText, Qt::black);
  for (const QPalette& palette : {before, darkPalette(), pale, dim}) {
    GoalRow row;
    row.setPalette(palette);
    row.setChecked(true);
    row.resize(200, 60);
    const QColor ground = row.grab().toImage().pixelColor(6, 30);
    EXPECT_GE(contrast(ground, palette.color(QPalette::Inactive, QPalette::HighlightedText)), 4.5)
        << ground.name().toStdString();
  }
}

TEST_F(ColoursTest, QuieterLevelsAreTakenFromThePaletteInUse) {
  for (const QPalette& palette : {before, darkPalette()}) {
    for (const auto style : {ui::ForegroundStyle::secondary, ui::ForegroundStyle::tertiary}) {
      EXPECT_GE(contrast(inkOf(style, palette), palette.color(QPalette::Base)), 4.5);
    }
  }
}

}  // namespace
}  // namespace vemra::desk
