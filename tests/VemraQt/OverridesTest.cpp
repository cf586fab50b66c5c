// Single values of the environment that a host sets; the rest follows the system.

#include "VemraQt/HighContrast.hpp"
#include "VemraQt/QtStringsTable.hpp"
#include "VemraQt/SystemEnvironment.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/Palettes.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <optional>
#include <string>

#include <QApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::Contains;

namespace {

/// A host's own word for one of the screen's keys.
class OwnWord final : public ui::StringsTable {
 public:
  std::optional<std::string> lookup(std::string_view key) const override {
    if (key != "Show source") return std::nullopt;
    return "Quelle";
  }
};

void usePalette(const QPalette& palette) {
  QApplication::setPalette(palette);
  QApplication::processEvents();
}

}  // namespace

TEST(Overrides, AHostWithItsOwnLanguageStillTurnsDarkWithTheSystem) {
  AsBefore asBefore;
  WindowHost host(resultWith(2));
  host.widget.setOverrides({.locale = "de_DE", .strings = std::make_shared<OwnWord>()});
  usePalette(qt::highContrastPalette());
  EXPECT_EQ(host.widget.environment().colorScheme, ui::ColorScheme::dark);
  EXPECT_EQ(host.widget.environment().locale, "de_DE");
  EXPECT_THAT(host.visibleTexts(), Contains("Quelle"));
  EXPECT_EQ(pageOf(host.widget).theme().text(ui::ForegroundStyle::primary), QColor(Qt::white));
  usePalette(asBefore.palette);
  EXPECT_EQ(host.widget.environment().colorScheme, ui::ColorScheme::light);
  EXPECT_EQ(host.widget.environment().locale, "de_DE");
}

TEST(Overrides, AColourSchemeOfTheHostStaysWhenTheSystemsChanges) {
  AsBefore asBefore;
  WindowHost host(resultWith(2));
  host.widget.setOverrides({.colorScheme = ui::ColorScheme::light});
  usePalette(qt::highContrastPalette());
  EXPECT_EQ(host.widget.environment().colorScheme, ui::ColorScheme::light);
}

TEST(Overrides, TheDirectionFollowsTheApplicationUnlessItIsSet) {
  WindowHost host(resultWith(2));
  host.widget.setOverrides({.locale = "de_DE"});
  QApplication::setLayoutDirection(Qt::RightToLeft);
  EXPECT_EQ(host.widget.environment().layoutDirection, ui::LayoutDirection::rightToLeft);
  host.widget.setOverrides({.layoutDirection = ui::LayoutDirection::leftToRight});
  EXPECT_EQ(host.widget.environment().layoutDirection, ui::LayoutDirection::leftToRight);
  QApplication::setLayoutDirection(Qt::LeftToRight);
}

/// A window of a host with its own palette, and a page in it.
struct OwnWindow {
  explicit OwnWindow(const QPalette& palette) {
    window.setPalette(palette);
    window.resize(400, 300);
    page->setGeometry(window.rect());
    page->setRoot(ui::Text("A text"));
    window.show();
  }
  QColor text() const { return pageOf(*page).theme().text(ui::ForegroundStyle::primary); }
  QColor background() const {
    const QImage picture = page->grab().toImage();
    return picture.pixelColor(picture.width() - 1, picture.height() - 1);
  }

  QWidget window;
  qt::ViewWidget* page = new qt::ViewWidget(&window);
};

TEST(Overrides, ThePaletteOfTheWindowAroundThePageIsThePages) {
  OwnWindow own(qt::highContrastPalette());
  EXPECT_EQ(own.page->environment().colorScheme, ui::ColorScheme::dark);
  EXPECT_EQ(own.text(), QColor(Qt::white));
  EXPECT_EQ(own.background(), QColor(Qt::black));
  own.window.setPalette(QApplication::palette());
  EXPECT_EQ(own.page->environment().colorScheme, ui::ColorScheme::light);
  EXPECT_EQ(own.background(), QColor(Qt::white));
}

TEST(Overrides, AColourSchemeOfTheHostStaysWhateverTheWindowsPaletteIs) {
  OwnWindow own(qt::highContrastPalette());
  own.page->setOverrides({.colorScheme = ui::ColorScheme::light});
  EXPECT_GT(own.background().lightness(), 200);
  EXPECT_LT(own.text().lightness(), 60);
  own.window.setPalette(QApplication::palette());
  EXPECT_EQ(own.background(), QColor(Qt::white)) << "the window's, which has that scheme now";
  own.window.setPalette(qt::highContrastPalette());
  EXPECT_GT(own.background().lightness(), 200);
  own.page->setOverrides({});
  EXPECT_EQ(own.background(), QColor(Qt::black));
}

TEST(Overrides, APageThatIsMovedToAnotherWindowTakesItsPalette) {
  OwnWindow light(QApplication::palette()), dark(qt::highContrastPalette());
  light.page->setParent(&dark.window);
  light.page->show();
  EXPECT_EQ(light.page->environment().colorScheme, ui::ColorScheme::dark);
  light.window.setPalette(qt::highContrastPalette());
  dark.window.setPalette(QApplication::palette());
  EXPECT_EQ(light.page->environment().colorScheme, ui::ColorScheme::light);
}

TEST(Overrides, APageThatIsAWindowItselfTakesNothingFromItsParent) {
  OwnWindow own(qt::highContrastPalette());
  own.window.setLayoutDirection(Qt::RightToLeft);
  qt::ViewWidget dialog(&own.window);
  dialog.setWindowFlag(Qt::Dialog);
  dialog.setRoot(ui::Text("A text"));
  dialog.show();
  EXPECT_EQ(dialog.environment().colorScheme, ui::ColorScheme::light);
  EXPECT_EQ(dialog.environment().layoutDirection, ui::LayoutDirection::leftToRight);
  EXPECT_LT(pageOf(dialog).theme().text(ui::ForegroundStyle::primary).lightness(), 60);
}

TEST(Overrides, APageWithTheEnvironmentOfItsHostKeepsItInAnotherWindow) {
  OwnWindow light(QApplication::palette()), dark(qt::highContrastPalette());
  light.page->setEnvironment({});
  light.page->setParent(&dark.window);
  light.page->show();
  EXPECT_EQ(light.page->environment().colorScheme, ui::ColorScheme::light);
  EXPECT_GT(light.background().lightness(), 200);
}

TEST(Overrides, TheDirectionOfTheWindowAroundThePageIsThePages) {
  OwnWindow own(QApplication::palette());
  own.window.setLayoutDirection(Qt::RightToLeft);
  EXPECT_EQ(own.page->environment().layoutDirection, ui::LayoutDirection::rightToLeft);
  EXPECT_EQ(own.page->layoutDirection(), Qt::RightToLeft);
  own.page->setOverrides({.layoutDirection = ui::LayoutDirection::leftToRight});
  EXPECT_EQ(own.page->layoutDirection(), Qt::LeftToRight);
}

TEST(Overrides, ReplaceTheOverridesOrTheEnvironmentBefore) {
  WindowHost host(resultWith(2));
  host.widget.setOverrides({.locale = "de_DE"});
  host.widget.setOverrides({.textScale = 2});
  EXPECT_EQ(host.widget.environment().locale, qt::systemEnvironment().locale);
  EXPECT_EQ(host.widget.environment().textScale, 2);
  ui::Environment dark;
  dark.colorScheme = ui::ColorScheme::dark;
  host.widget.setEnvironment(dark);
  host.widget.setOverrides({});
  EXPECT_EQ(host.widget.environment().colorScheme, ui::ColorScheme::light);
}

TEST(Overrides, KeepWhatAPersonTypes) {
  WindowHost host(resultWith(2));
  host.press("vemra.goal.person.p1.outcome.start");
  auto& note = host.get<QWidget>("vemra.goal.person.p1.outcome.note");
  note.setFocus();
  host.widget.setOverrides({.strings = std::make_shared<OwnWord>()});
  EXPECT_TRUE(note.hasFocus());
}
