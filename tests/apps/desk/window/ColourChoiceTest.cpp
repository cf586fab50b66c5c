// The colours of the View menu.

#include "VemraQt/Theme.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/ColourChoice.hpp"
#include "apps/desk/window/MenuBar.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <QMenu>
#include <QScopeGuard>
#include <QStyle>
#include <QStyleFactory>

namespace vemra::desk {
namespace {

using ui::ColorScheme;

class ColourChoiceTest : public OpenDesk {
 protected:
  ~ColourChoiceTest() override {
    close();
    ColourChoice().choose(Colours::system);
    QApplication::setPalette(before);
  }

  static ColorScheme scheme() { return qt::colorSchemeOf(QApplication::palette()); }
  ColorScheme schemeOfScreen() const { return window->screen().environment().colorScheme; }
  QAction& command(const QString& title) const {
    for (auto* action : window->findChild<MenuBar*>()->findChildren<QAction*>()) {
      if (action->text() == title) return *action;
    }
    throw std::runtime_error("no command " + title.toStdString());
  }

  const QPalette before = QApplication::palette();
};

TEST_F(ColourChoiceTest, TheCommandsSetTheColoursOfTheWholeWindow) {
  GoalStore::open(file).import({goal("a", "First")});
  open();
  wait<QAbstractButton>("vemra.goal.person.p1.outcome.start");
  EXPECT_TRUE(command("Like the &System").isChecked());
  command("&Dark").trigger();
  EXPECT_TRUE(becomes([&] { return schemeOfScreen() == ColorScheme::dark; }));
  EXPECT_EQ(qt::colorSchemeOf(window->palette()), ColorScheme::dark);
  command("&Light").trigger();
  EXPECT_TRUE(becomes([&] { return schemeOfScreen() == ColorScheme::light; }));
  EXPECT_FALSE(command("&Dark").isChecked());
}

TEST_F(ColourChoiceTest, TheColoursOfTheSystemComeBack) {
  const ColorScheme ofSystem = scheme();
  ColourChoice choice;
  choice.choose(ofSystem == ColorScheme::dark ? Colours::light : Colours::dark);
  EXPECT_NE(scheme(), ofSystem);
  choice.choose(Colours::system);
  EXPECT_EQ(QApplication::palette().color(QPalette::Base), before.color(QPalette::Base));
  EXPECT_EQ(QApplication::palette().color(QPalette::Text), before.color(QPalette::Text));
}

TEST_F(ColourChoiceTest, TheNextStartHasTheSameColours) {
  ColourChoice().choose(Colours::dark);
  QApplication::setPalette(before);
  const ColourChoice next;
  EXPECT_EQ(next.colours(), Colours::dark);
  EXPECT_EQ(scheme(), ColorScheme::dark);
  open();
  EXPECT_TRUE(command("&Dark").isChecked());
}

TEST_F(ColourChoiceTest, FusionDrawsTheColoursThatAdwaitaCannot) {
  if (QApplication::setStyle("adwaita") == nullptr) GTEST_SKIP() << "adwaita-qt6 is not installed";
  const auto end = qScopeGuard([] { QApplication::setStyle("fusion"); });
  ColourChoice choice;
  choice.choose(Colours::dark);
  EXPECT_EQ(QApplication::style()->name(), "fusion");
  EXPECT_EQ(scheme(), ColorScheme::dark);
  choice.choose(Colours::light);
  EXPECT_EQ(QApplication::style()->name(), "adwaita");
  choice.choose(Colours::dark);
  choice.choose(Colours::system);
  EXPECT_EQ(QApplication::style()->name(), "adwaita");
}

}  // namespace
}  // namespace vemra::desk
