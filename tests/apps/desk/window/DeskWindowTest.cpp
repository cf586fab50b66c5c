// The panes of the window, and where the focus is among them.

#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/LinkLabel.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <string>

#include <QShortcut>
#include <QSplitter>

namespace vemra::desk {
namespace {

class DeskWindowTest : public OpenDesk {
 protected:
  DeskWindowTest() { GoalStore::open(file).import({goal("a", "First"), goal("b", "Second")}); }

  void openPerson() {
    pressTitled("Ada");
    ASSERT_NE(wait<QWidget>("desk.side"), nullptr);
    ASSERT_NE(wait<QAbstractButton>("desk.side.close"), nullptr);
  }
  /// The key that stands for "cancel", which the window takes wherever the focus is.
  void pressEscape() const {
    int found = 0;
    for (auto* shortcut : window->findChildren<QShortcut*>()) {
      if (shortcut->key() != QKeySequence(QKeySequence::Cancel)) continue;
      ++found;
      Q_EMIT shortcut->activated();
    }
    EXPECT_EQ(found, 1);
  }
  /// Changes the store like another program, and waits until the window shows the change.
  void changeElsewhere(const std::string& title) {
    auto changed = goal("a", title);
    const std::string document = folder.write("a.json", documents::writeResult(changed));
    ASSERT_EQ(run({{"import", "--store", file, document}}).exitCode, 0);
    ASSERT_TRUE(becomes([&] { return shows(QString::fromStdString(title)); }));
  }
};

TEST_F(DeskWindowTest, HasThePanesSideBySideAndASizeThatFitsThem) {
  open();
  EXPECT_EQ(window->windowTitle(), "Vemra Desk");
  EXPECT_EQ(window->objectName(), "desk");
  EXPECT_EQ(window->minimumSize(), QSize(360, 320));
  auto* panes = window->findChild<QSplitter*>();
  ASSERT_TRUE(panes);
  EXPECT_EQ(panes->count(), 3);
  EXPECT_FALSE(panes->childrenCollapsible());
  ASSERT_NE(wait<QWidget>("desk.goals"), nullptr);
  EXPECT_EQ(panes->widget(0), find<QWidget>("desk.goals"));
  EXPECT_GE(panes->widget(0)->minimumWidth(), 140);
  EXPECT_GE(panes->widget(1)->minimumWidth(), 260);
  EXPECT_TRUE(panes->widget(1)->isAncestorOf(&window->screen()));
  EXPECT_GT(window->screen().width(), panes->widget(0)->width()) << "the screen has the room";
}

TEST_F(DeskWindowTest, TheOpenGoalIsMarkedInTheList) {
  open("b");
  auto* second = wait<QAbstractButton>("desk.goal.b");
  ASSERT_NE(second, nullptr);
  EXPECT_TRUE(second->isChecked());
  EXPECT_FALSE(find<QAbstractButton>("desk.goal.a")->isChecked());
  press("desk.goal.a");
  EXPECT_TRUE(becomes([&] { return find<QAbstractButton>("desk.goal.a")->isChecked(); }));
  EXPECT_FALSE(second->isChecked());
}

TEST_F(DeskWindowTest, AnEmptyStoreHasNoListOfGoals) {
  file = folder.file("empty.sqlite");
  GoalStore::open(file);
  open();
  ASSERT_NE(wait<QWidget>("desk.welcome"), nullptr);
  EXPECT_EQ(find<QWidget>("desk.goals"), nullptr);
}

TEST_F(DeskWindowTest, AnotherGoalClosesTheSidePaneAndTheSameOneDoesNot) {
  open("a");
  openPerson();
  press("desk.goal.a");
  pass(50);
  EXPECT_NE(find<QWidget>("desk.side"), nullptr);
  press("desk.goal.b");
  EXPECT_EQ(find<QWidget>("desk.side"), nullptr);
}

TEST_F(DeskWindowTest, EscapeGivesTheFocusBackToTheElementThatOpenedTheSidePane) {
  open("a");
  auto* source = wait<QAbstractButton>("vemra.goal.person.p1.show-source");
  ASSERT_NE(source, nullptr);
  qttest::activate(*window);
  source->setFocus();
  press("vemra.goal.person.p1.show-source");
  auto* close = wait<QAbstractButton>("desk.side.close");
  ASSERT_NE(close, nullptr);
  close->setFocus();
  changeElsewhere("First, changed");
  ASSERT_TRUE(find<QWidget>("desk.side")->isAncestorOf(window->focusWidget()));
  pressEscape();
  EXPECT_EQ(find<QWidget>("desk.side"), nullptr);
  ASSERT_NE(window->focusWidget(), nullptr);
  EXPECT_EQ(window->focusWidget()->objectName(), "vemra.goal.person.p1.show-source");
}

TEST_F(DeskWindowTest, AGoalInTheSidePaneIsOpenedAndItsRowGetsTheFocus) {
  open("a");
  openPerson();
  qttest::activate(*window);
  const auto link = [&](const QString& title) {
    return becomes([&] {
      for (auto* each : window->findChildren<LinkLabel*>()) {
        if (!each->isVisible() || each->text() != title) continue;
        each->setFocus();
        Q_EMIT each->pressed();
        return true;
      }
      return false;
    });
  };
  ASSERT_TRUE(link("First")) << texts().join("\n").toStdString();
  EXPECT_NE(find<QWidget>("desk.side"), nullptr) << "this goal is open already";
  EXPECT_EQ(window->focusWidget(), &window->screen());
  ASSERT_TRUE(link("Second"));
  EXPECT_EQ(find<QWidget>("desk.side"), nullptr);
  auto* second = find<QAbstractButton>("desk.goal.b");
  EXPECT_TRUE(second->isChecked());
  EXPECT_EQ(window->focusWidget(), second);
  EXPECT_TRUE(becomes([&] { return window->windowTitle().startsWith("Second"); }));
}

TEST_F(DeskWindowTest, TheFocusGoesFromAClosedSidePaneToTheElementThatOpenedIt) {
  open("a");
  openPerson();
  qttest::activate(*window);
  auto* close = find<QAbstractButton>("desk.side.close");
  close->setFocus();
  ASSERT_EQ(window->focusWidget(), close);
  close->click();
  EXPECT_EQ(find<QWidget>("desk.side"), nullptr);
  auto* opener = qobject_cast<QAbstractButton*>(window->focusWidget());
  ASSERT_NE(opener, nullptr);
  EXPECT_EQ(opener->text(), "Ada");
}

TEST_F(DeskWindowTest, AFocusElsewhereStaysWhenTheSidePaneCloses) {
  open("a");
  openPerson();
  auto* row = find<QAbstractButton>("desk.goal.a");
  row->setFocus();
  pressEscape();
  EXPECT_EQ(find<QWidget>("desk.side"), nullptr);
  EXPECT_EQ(window->focusWidget(), row);
}

TEST_F(DeskWindowTest, ASidePaneThatIsClosedStaysClosedWhenTheStoreChanges) {
  open("a");
  openPerson();
  changeElsewhere("First, changed");
  EXPECT_NE(find<QWidget>("desk.side"), nullptr) << "an open one follows";
  EXPECT_TRUE(becomes([&] { return shows("First, changed", "desk.side"); }));
  press("desk.side.close");
  changeElsewhere("First, again");
  pass(50);
  EXPECT_EQ(find<QWidget>("desk.side"), nullptr);
}

TEST_F(DeskWindowTest, LongTextsBesideTheScreenAreShownInPiecesThatStayWhenTheStoreChanges) {
  auto large = goal("b", "Second");
  auto noted = outcome("o1", "p1", GoalOutcomeValue::helped);
  noted.note = std::string(2'000'000, 'w');
  large.outcomes = std::vector<GoalOutcomeDTO>{noted};
  GoalStore::open(file).import({large});
  open("b");
  openPerson();
  auto* more = wait<QPushButton>("desk.side.more");
  ASSERT_NE(more, nullptr);
  const auto pieces = [&] { return texts("desk.side").filter("wwwww").size(); };
  EXPECT_EQ(pieces(), 1);
  more->click();
  EXPECT_TRUE(becomes([&] { return pieces() == 2; }));
  changeElsewhere("First, changed");
  ASSERT_TRUE(becomes([&] { return shows("First, changed", "desk.side"); }));
  EXPECT_EQ(pieces(), 2);
}

}  // namespace
}  // namespace vemra::desk
