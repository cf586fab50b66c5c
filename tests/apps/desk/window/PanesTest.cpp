// Which panes a window has room for, and the way between them in a narrow one.

#include "apps/desk/window/GoalPage.hpp"
#include "apps/desk/window/LinkLabel.hpp"
#include "apps/desk/window/MenuBar.hpp"
#include "apps/desk/window/Panes.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <string>
#include <vector>

#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <QShortcut>
#include <QToolButton>

namespace vemra::desk {
namespace {

/// Three empty panes; a character is as wide as it is on average.
class PanesTest : public ::testing::Test {
 protected:
  PanesTest() {
    panes.setParent(&window);
    details->hide();
    panes.setGoalsWanted(true);
  }

  /// The letters of the panes that are shown in a window of so many characters.
  std::string shownAt(int characters) {
    panes.resize(characters * panes.fontMetrics().averageCharWidth(), 400);
    window.show();
    std::string shown;
    if (goals->isVisible()) shown += 'g';
    if (page->isVisible()) shown += 'p';
    if (details->isVisible()) shown += 'd';
    return shown;
  }

  QWidget window;  // a splitter that is a window itself keeps the room for all panes
  QWidget* goals = new QWidget;
  QWidget* page = new QWidget;
  QWidget* details = new QWidget;
  Panes panes{goals, page, details};
};

TEST_F(PanesTest, TheGoalsGiveWayFirstAndThenThePage) {
  EXPECT_EQ(shownAt(70), "gp");
  EXPECT_EQ(shownAt(45), "p");
  details->show();
  EXPECT_EQ(shownAt(105), "gpd");
  EXPECT_EQ(shownAt(80), "pd");
  EXPECT_EQ(shownAt(45), "d");
  details->hide();
  EXPECT_EQ(shownAt(45), "p");
  EXPECT_EQ(shownAt(70), "gp");
}

TEST_F(PanesTest, LargerTextsTakeMoreRoom) {
  const int before = panes.fontMetrics().averageCharWidth();
  EXPECT_EQ(shownAt(70), "gp");
  QFont large = panes.font();
  large.setPointSizeF(large.pointSizeF() * 2);
  panes.setFont(large);
  ASSERT_GT(panes.fontMetrics().averageCharWidth(), before);
  EXPECT_TRUE(goals->isHidden());
  EXPECT_FALSE(page->isHidden());
}

TEST_F(PanesTest, WithoutRoomTheUserGoesToTheGoalsAndBack) {
  ASSERT_EQ(shownAt(45), "p");
  EXPECT_TRUE(panes.hideGoals());
  panes.bringToFront(Panes::Pane::goals);
  EXPECT_EQ(shownAt(45), "g");
  EXPECT_FALSE(panes.hideGoals());
  EXPECT_TRUE(panes.leaveGoals());
  EXPECT_EQ(shownAt(45), "p");
  EXPECT_FALSE(panes.leaveGoals());
  panes.bringToFront(Panes::Pane::goals);
  EXPECT_EQ(shownAt(70), "gp");
  EXPECT_FALSE(panes.leaveGoals()) << "both have room";
  ASSERT_EQ(shownAt(45), "p");
  panes.bringToFront(Panes::Pane::goals);
  details->show();
  EXPECT_EQ(shownAt(45), "d");
  details->hide();
  EXPECT_EQ(shownAt(45), "p");
}

TEST_F(PanesTest, EachPaneThatThereIsCanBeInFront) {
  ASSERT_EQ(shownAt(45), "p");
  EXPECT_EQ(panes.panes(), (std::vector{Panes::Pane::goals, Panes::Pane::page}));
  panes.bringToFront(Panes::Pane::details);
  EXPECT_EQ(shownAt(45), "p") << "the details are closed";
  details->show();
  EXPECT_EQ(panes.panes(),
            (std::vector{Panes::Pane::goals, Panes::Pane::page, Panes::Pane::details}));
  EXPECT_EQ(shownAt(45), "d");
  panes.bringToFront(Panes::Pane::goals);
  EXPECT_EQ(shownAt(45), "g");
  panes.bringToFront(Panes::Pane::page);
  EXPECT_EQ(shownAt(45), "p");
  EXPECT_FALSE(details->isHidden()) << "they are there and covered";
  panes.bringToFront(Panes::Pane::details);
  EXPECT_EQ(shownAt(45), "d");
}

TEST_F(PanesTest, ThePaneInFrontHasCompanyWhereThereIsRoom) {
  details->show();
  ASSERT_EQ(shownAt(80), "pd");
  panes.bringToFront(Panes::Pane::goals);
  EXPECT_EQ(shownAt(80), "gp");
  panes.bringToFront(Panes::Pane::page);
  EXPECT_EQ(shownAt(80), "pd");
  EXPECT_EQ(shownAt(70), "gp") << "no room for the details";
}

TEST_F(PanesTest, AWindowWithRoomForAllPanesEndsTheChoiceOfOne) {
  ASSERT_EQ(shownAt(45), "p");
  panes.bringToFront(Panes::Pane::goals);
  ASSERT_EQ(shownAt(45), "g");
  ASSERT_EQ(shownAt(70), "gp");
  EXPECT_EQ(shownAt(45), "p");
  details->show();
  panes.bringToFront(Panes::Pane::page);
  ASSERT_EQ(shownAt(45), "p");
  ASSERT_EQ(shownAt(105), "gpd");
  EXPECT_EQ(shownAt(45), "d");
}

TEST_F(PanesTest, GoalsThatAreNotWantedStayHidden) {
  panes.setGoalsWanted(false);
  EXPECT_EQ(shownAt(90), "p");
  EXPECT_FALSE(panes.hideGoals());
  panes.bringToFront(Panes::Pane::goals);
  EXPECT_EQ(shownAt(45), "p");
}

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

TEST(GoalPageTest, ItsLinesHaveAboutSeventyFiveCharacters) {
  GoalPage page;
  page.resize(2000, 500);
  page.setRoot(ui::Text(ui::verbatim(std::string(4000, 'w'))));
  page.show();
  QApplication::processEvents();
  EXPECT_LE(page.viewport()->width(), longestLine(page) + 60);
  EXPECT_GE(page.viewport()->width(), longestLine(page));
  EXPECT_EQ(page.viewport()->x(), 0);
  page.setLayoutDirection(Qt::RightToLeft);
  QApplication::processEvents();
  EXPECT_GT(page.viewport()->x(), 1000);
  page.setLayoutDirection(Qt::LeftToRight);
  page.resize(400, 500);
  QApplication::processEvents();
  EXPECT_GT(page.viewport()->width(), 370);
}

TEST(GoalPageTest, ItsLinesKeepTheirWidthWhenTheScrollBarComesAndGoes) {
  GoalPage page;
  page.resize(2000, 500);
  page.setRoot(ui::Text(ui::verbatim(std::string(4000, 'w'))));
  page.show();
  QApplication::processEvents();
  ASSERT_TRUE(page.verticalScrollBar()->isVisible());
  const int width = page.viewport()->width();
  page.setRoot(ui::Text("short"));
  QApplication::processEvents();
  ASSERT_FALSE(page.verticalScrollBar()->isVisible());
  EXPECT_EQ(page.viewport()->width(), width);
  page.setRoot(ui::Text(ui::verbatim(std::string(4000, 'w'))));
  QApplication::processEvents();
  ASSERT_TRUE(page.verticalScrollBar()->isVisible());
  EXPECT_EQ(page.viewport()->width(), width);
}

}  // namespace
}  // namespace vemra::desk
