#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/GoalScreens.hpp"
#include "apps/desk/window/Pages.hpp"
#include "tests/apps/desk/SampleResults.hpp"

#include <string>
#include <vector>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QPointer>
#include <QScrollBar>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class GoalScreensTest : public ::testing::Test {
 protected:
  GoalScreensTest() {
    pages.resize(500, 700);
    pages.show();
  }

  void show(const GetGoalSnapshotResponse& result) {
    const auto ignore = [](const auto&) {};
    const GoalResultSnapshotV1 snapshot(result);
    screens.show({result.goal.id, snapshot, 0}, [&](ui::ViewGraph&) {
      return GoalResultView(snapshot, ignore, ignore, ignore, ignore);
    });
    QApplication::processEvents();
  }
  void show(const std::string& goalID) { show(goal(goalID, "Goal " + goalID)); }
  void openEditor(const std::string& identifier) {
    auto* start = screens.current().findChild<QAbstractButton*>(
        QString::fromStdString(identifier + ".outcome.start"));
    ASSERT_NE(start, nullptr);
    start->click();
  }

  Pages pages;
  GoalScreens screens{pages, 3};
};

TEST_F(GoalScreensTest, AGoalThatIsShownAgainStillHasItsScreen) {
  show("a");
  const qt::ViewWidget* first = &screens.current();
  show("b");
  EXPECT_NE(&screens.current(), first);
  show("a");
  EXPECT_EQ(&screens.current(), first);
  EXPECT_EQ(pages.currentWidget(), first);
}

// U+00E5 and "a" with U+030A are the same text.
TEST_F(GoalScreensTest, AGoalIsTheSameUnderCanonicalEquivalence) {
  show("\u00e5");
  const qt::ViewWidget* first = &screens.current();
  show("a\u030a");
  EXPECT_EQ(&screens.current(), first);
}

TEST_F(GoalScreensTest, TheScreenShownLongestAgoIsDestroyedFirst) {
  show("a");
  const QPointer<qt::ViewWidget> first(&screens.current());
  show("b");
  const QPointer<qt::ViewWidget> second(&screens.current());
  show("c");
  show("a");
  show("d");
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(screens.count(), 3u);
  EXPECT_TRUE(first);
  EXPECT_FALSE(second);
}

TEST_F(GoalScreensTest, AScreenWithAnOpenEditorIsNeverDestroyed) {
  show("a");
  const QPointer<qt::ViewWidget> first(&screens.current());
  openEditor("vemra.goal.person.p1");
  for (const char* id : {"b", "c", "d", "e"}) show(id);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(screens.count(), 3u);
  EXPECT_TRUE(first);
  EXPECT_EQ(screens.drafts(), QStringList{"\u2068Ada\u2069 (\u2068Goal a\u2069)"});
}

TEST_F(GoalScreensTest, ScreensWithoutAnEditorGoAsSoonAsThereAreTooMany) {
  for (const char* id : {"a", "b", "c", "d"}) {
    show(id);
    openEditor("vemra.goal.person.p1");
  }
  EXPECT_EQ(screens.count(), 4u) << "no draft is lost";
  show("e");
  EXPECT_EQ(screens.count(), 5u);
  show("f");
  EXPECT_EQ(screens.count(), 5u) << "the one without an editor goes, though it was shown last";
  ASSERT_NE(screens.showAgain("a"), nullptr);
  ASSERT_NE(screens.showAgain("b"), nullptr);
  for (const char* id : {"a", "b", "c", "d"}) {
    ASSERT_NE(screens.showAgain(id), nullptr);
    QApplication::processEvents();
    auto* cancel =
        screens.current().findChild<QAbstractButton*>("vemra.goal.person.p1.outcome.cancel");
    ASSERT_NE(cancel, nullptr);
    cancel->click();
  }
  show("g");
  EXPECT_EQ(screens.count(), 3u) << "the usual number, once the editors are closed";
}

TEST_F(GoalScreensTest, OpenEditorsAreFoundInRowsOutOfViewAndInThePath) {
  auto longer = goal("l", "Long");
  std::vector<GoalPersonCandidateDTO> people;
  for (int i = 0; i < 500; ++i) {
    people.push_back({"q" + std::to_string(i), "Person " + std::to_string(i), {}, {}});
  }
  longer.people = people;
  longer.paths = {{{"q0", "q7"}, GoalWhyDTO::nameMatch(), 0}};
  longer.outcomes = {};
  show(longer);
  openEditor("vemra.goal.person.q1");
  auto* bar = screens.current().verticalScrollBar();
  bar->setValue(bar->maximum());
  QApplication::processEvents();
  openEditor("vemra.goal.path");
  EXPECT_EQ(screens.drafts(), (QStringList{"\u2068Person 1\u2069 (\u2068Long\u2069)",
                                           "\u2068the path to Person 7\u2069 (\u2068Long\u2069)"}));
  bar->setValue(0);
  QApplication::processEvents();
  EXPECT_EQ(screens.drafts().size(), 2);
}

TEST_F(GoalScreensTest, ALongTitleIsShortInTheLineOfAnOpenEditor) {
  show(goal("a", std::string(300, 't') + "\nsecond line"));
  openEditor("vemra.goal.person.p1");
  ASSERT_EQ(screens.drafts().size(), 1);
  EXPECT_LT(screens.drafts()[0].size(), 100);
  EXPECT_FALSE(screens.drafts()[0].contains('\n'));
}

TEST_F(GoalScreensTest, TheScreenOfAGoalIsShownAgainIfItExists) {
  show("a");
  const qt::ViewWidget* first = &screens.current();
  show("b");
  EXPECT_EQ(screens.showAgain("c"), nullptr);
  EXPECT_NE(&screens.current(), first);
  const LoadedGoal* shown = screens.showAgain("a");
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(shown->id, "a");
  EXPECT_EQ(&screens.current(), first);
  EXPECT_EQ(pages.currentWidget(), first);
}

TEST_F(GoalScreensTest, AssistiveTechnologySeesTheShownScreenOnly) {
  show("a");
  const qt::ViewWidget* first = &screens.current();
  show("b");
  QAccessibleInterface* stack = QAccessible::queryAccessibleInterface(&pages);
  ASSERT_EQ(stack->childCount(), 1);
  EXPECT_EQ(stack->child(0)->object(), &screens.current());
  EXPECT_EQ(stack->child(1), nullptr);
  EXPECT_EQ(stack->indexOfChild(stack->child(0)), 0);
  EXPECT_EQ(stack->indexOfChild(
                QAccessible::queryAccessibleInterface(const_cast<qt::ViewWidget*>(first))),
            -1);
}

}  // namespace
}  // namespace vemra::desk
