// The way between the goals, the page and the details in a window with room for one of them.

#include "apps/desk/window/LinkLabel.hpp"
#include "apps/desk/window/MenuBar.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <QKeyEvent>
#include <QPointer>
#include <QShortcut>
#include <QToolButton>

namespace vemra::desk {
namespace {

class NarrowWindowTest : public OpenDesk {
 protected:
  NarrowWindowTest() {
    GoalStore::open(file).import({goal("a", "First"), goal("b", "Second")});
    open("a");
    window->resize(360, 700);
    qttest::activate(*window);
  }
};

TEST_F(NarrowWindowTest, OneGoesIntoAGoalAndBackToTheGoals) {
  auto* show = wait<QToolButton>("desk.goals.show");
  ASSERT_NE(show, nullptr);
  EXPECT_EQ(window->width(), 360);
  EXPECT_EQ(find<QWidget>("desk.goals"), nullptr);
  show->click();
  ASSERT_NE(find<QWidget>("desk.goals"), nullptr);
  EXPECT_FALSE(window->screen().isVisible());
  ASSERT_NE(window->focusWidget(), nullptr);
  EXPECT_EQ(window->focusWidget()->objectName(), "desk.goal.a");
  EXPECT_EQ(find<QToolButton>("desk.goals.show"), nullptr);
  QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
  QApplication::sendEvent(window->focusWidget(), &down);
  EXPECT_NE(find<QWidget>("desk.goals"), nullptr) << "the arrow keys move on in the list";
  press("desk.goal.b");
  EXPECT_EQ(find<QWidget>("desk.goals"), nullptr);
  EXPECT_TRUE(becomes([&] { return window->screen().isVisible(); }));
  EXPECT_EQ(window->focusWidget(), &window->screen());
}

TEST_F(NarrowWindowTest, TheDetailsFillTheWindowAndGiveTheFocusBack) {
  pressTitled("Ada");
  auto* close = wait<QToolButton>("desk.side.close");
  ASSERT_NE(close, nullptr);
  EXPECT_FALSE(window->screen().isVisible());
  EXPECT_LE(find<QWidget>("desk.side")->width(), 360);
  close->setFocus();
  close->click();
  EXPECT_TRUE(window->screen().isVisible());
  EXPECT_TRUE(window->screen().isAncestorOf(window->focusWidget()) ||
              window->focusWidget() == &window->screen());
}

TEST_F(NarrowWindowTest, TheFocusReturnsToTheElementThatOpenedTheDetails) {
  wait<QAbstractButton>("vemra.goal.person.p1.outcome.start")->setFocus();
  pressTitled("Ada");  // as assistive technology does: the focus stays
  auto* close = wait<QToolButton>("desk.side.close");
  ASSERT_NE(close, nullptr);
  close->setFocus();
  close->click();
  auto* opener = qobject_cast<QAbstractButton*>(window->focusWidget());
  ASSERT_NE(opener, nullptr);
  EXPECT_EQ(opener->text(), "Ada");
}

TEST_F(NarrowWindowTest, ALinkToAGoalLeavesTheDetailsThatFillTheWindow) {
  pressTitled("Ada");
  ASSERT_NE(wait<QToolButton>("desk.side.close"), nullptr);
  const auto press = [&](const QString& title) {
    for (auto* link : find<QWidget>("desk.side")->findChildren<LinkLabel*>()) {
      if (link->text() != title) continue;
      QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
      QApplication::sendEvent(link, &enter);
      return;
    }
    FAIL() << "there is no link " << title.toStdString();
  };
  press("First");
  EXPECT_TRUE(becomes([&] { return window->screen().isVisible(); })) << "the open goal";
  pressTitled("Ada");
  ASSERT_NE(wait<QToolButton>("desk.side.close"), nullptr);
  press("Second");
  EXPECT_TRUE(becomes([&] { return window->screen().isVisible(); }));
  ASSERT_NE(window->focusWidget(), nullptr);
  EXPECT_TRUE(window->focusWidget()->isVisible()) << "no hidden row of the goals";
}

TEST_F(NarrowWindowTest, EscapeGoesBackFromTheGoalsToThePage) {
  auto* show = wait<QToolButton>("desk.goals.show");
  ASSERT_NE(show, nullptr);
  show->click();
  ASSERT_FALSE(window->screen().isVisible());
  for (auto* shortcut : window->findChildren<QShortcut*>()) {
    if (shortcut->key() == QKeySequence(QKeySequence::Cancel)) Q_EMIT shortcut->activated();
  }
  EXPECT_TRUE(window->screen().isVisible());
}

TEST_F(NarrowWindowTest, F6GoesRoundThePanesAndShowsThem) {
  pressTitled("Ada");
  ASSERT_NE(wait<QToolButton>("desk.side.close"), nullptr);
  auto* menus = window->findChild<MenuBar*>();
  const auto hasFocus = [&](const QWidget& pane) {
    const QWidget* focus = window->focusWidget();
    return pane.isVisible() && focus != nullptr && focus->isVisible() &&
           (focus == &pane || pane.isAncestorOf(focus));
  };
  const QWidget& side = *window->findChild<QWidget*>("desk.side");
  const QWidget& goals = *window->findChild<QWidget*>("desk.goals");
  for (int round = 0; round < 2; ++round) {
    while (!hasFocus(side)) Q_EMIT menus->nextPaneWanted();
    Q_EMIT menus->nextPaneWanted();
    EXPECT_TRUE(hasFocus(goals));
    Q_EMIT menus->nextPaneWanted();
    EXPECT_TRUE(hasFocus(window->screen()));
    Q_EMIT menus->nextPaneWanted();
    EXPECT_TRUE(hasFocus(side));
    Q_EMIT menus->previousPaneWanted();
    EXPECT_TRUE(hasFocus(window->screen()));
  }
}

TEST_F(NarrowWindowTest, FindingPeopleShowsThePage) {
  auto* menus = window->findChild<MenuBar*>();
  ASSERT_NE(wait<QWidget>("vemra.goal.person.p1.outcome.start"), nullptr);
  press("desk.goals.show");
  ASSERT_FALSE(window->screen().isVisible());
  Q_EMIT menus->findWanted();
  EXPECT_TRUE(window->screen().isVisible()) << "in place of the goals";
  auto* field = find<QWidget>("desk.find.text");
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(window->focusWidget(), field);
  pressTitled("Ada");
  ASSERT_NE(wait<QToolButton>("desk.side.close"), nullptr);
  ASSERT_FALSE(window->screen().isVisible());
  Q_EMIT menus->findWanted();
  EXPECT_TRUE(window->screen().isVisible()) << "in place of the details";
  EXPECT_EQ(window->focusWidget(), field);
  press("desk.find.close");
  EXPECT_TRUE(window->screen().isVisible());
  ASSERT_NE(window->focusWidget(), nullptr);
  EXPECT_TRUE(window->focusWidget()->isVisible());
}

TEST_F(NarrowWindowTest, DetailsThatAreCoveredComeBackWhenTheUserAsksForThem) {
  pressTitled("Ada");
  auto* close = wait<QToolButton>("desk.side.close");
  ASSERT_NE(close, nullptr);
  Q_EMIT window->findChild<MenuBar*>()->findWanted();
  ASSERT_FALSE(close->isVisible());
  pressTitled("Ada");
  EXPECT_TRUE(becomes([&] { return find<QToolButton>("desk.side.close") != nullptr; }));
}

TEST_F(NarrowWindowTest, AStoreThatChangesUncoversNothing) {
  pressTitled("Ada");
  ASSERT_NE(wait<QToolButton>("desk.side.close"), nullptr);
  Q_EMIT window->findChild<MenuBar*>()->findWanted();
  const auto side = [&] { return window->findChild<QWidget*>("desk.side.close"); };
  const QPointer<QWidget> before(side());
  GoalStore::open(file).import({goal("c", "Third")});
  ASSERT_TRUE(becomes([&] { return before.isNull() && side() != nullptr; })) << "shown anew";
  EXPECT_FALSE(side()->isVisible());
  EXPECT_TRUE(window->screen().isVisible());
  EXPECT_NE(find<QWidget>("desk.find.text"), nullptr);
}

TEST_F(NarrowWindowTest, DetailsThatCouldNotBeLookedUpDoNotComeInFrontLater) {
  pressTitled("Ada");
  ASSERT_NE(wait<QToolButton>("desk.side.close"), nullptr);
  Q_EMIT window->findChild<MenuBar*>()->findWanted();
  ASSERT_TRUE(window->screen().isVisible());
  const auto isNoticed = [&](const char* text) {
    return becomes([&] {
      auto* notice = find<QWidget>("desk.notice");
      return notice != nullptr && notice->accessibleName().contains(text);
    });
  };
  ASSERT_EQ(RawDatabase(file).run("UPDATE person_evidence SET position = 5"), "");
  ASSERT_TRUE(isNoticed("The goal could not be loaded."));
  pressTitled("Ada");
  ASSERT_TRUE(isNoticed("The person could not be looked up."));
  ASSERT_EQ(RawDatabase(file).run("UPDATE person_evidence SET position = 0"), "");
  const auto side = [&] { return window->findChild<QWidget*>("desk.side.close"); };
  const QPointer<QWidget> before(side());
  ASSERT_TRUE(becomes([&] { return before.isNull() && side() != nullptr; })) << "shown anew";
  EXPECT_FALSE(side()->isVisible());
  EXPECT_TRUE(window->screen().isVisible());
}

}  // namespace
}  // namespace vemra::desk
