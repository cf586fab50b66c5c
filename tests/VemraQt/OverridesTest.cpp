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
