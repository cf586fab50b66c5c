#include "apps/desk/window/Panes.hpp"

#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QMouseEvent>
#include <QSplitterHandle>
#include <QWidget>
#include <gtest/gtest.h>

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

  /// The pixels around the edge between two panes at which the mouse can move it: those before the
  /// edge and those behind it, in the direction of the layout.
  std::pair<int, int> gripAround(const QWidget& first) {
    const bool isMirrored = panes.isRightToLeft();
    const int edge = isMirrored ? first.x() - 1 : first.x() + first.width();
    std::pair<int, int> grip{0, 0};
    for (int step = -20; step <= 20; ++step) {
      const QPoint at(isMirrored ? edge - step : edge + step, panes.height() / 2);
      const QWidget* under = window.childAt(panes.mapTo(&window, at));
      if (qobject_cast<const QSplitterHandle*>(under)) ++(step < 0 ? grip.first : grip.second);
    }
    return grip;
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

TEST_F(PanesTest, TheEdgeBetweenTwoPanesHasAWideGripThatSparesTheScrollBarBeforeIt) {
  details->show();
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    panes.setLayoutDirection(direction);
    for (const int characters : {105, 120}) {
      ASSERT_EQ(shownAt(characters), "gpd");
      for (const QWidget* pane : {goals, page}) {
        const auto [before, behind] = gripAround(*pane);
        EXPECT_GE(before + behind, 6);
        EXPECT_LE(before, 1) << "the scroll bar of the pane is there";
      }
    }
  }
}

TEST_F(PanesTest, AnEdgeThatIsPressedAndNotMovedStays) {
  ASSERT_EQ(shownAt(90), "gp");
  const int width = goals->width();
  QWidget* grip = window.childAt(panes.mapTo(&window, QPoint(width + 4, 200)));
  ASSERT_NE(qobject_cast<QSplitterHandle*>(grip), nullptr);
  const auto send = [&](QEvent::Type type, int x, Qt::MouseButtons buttons) {
    const QPointF at(grip->mapFrom(&panes, QPoint(x, 200)));
    QMouseEvent event(type, at, grip->mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(grip, &event);
  };
  send(QEvent::MouseButtonPress, width + 4, Qt::LeftButton);
  send(QEvent::MouseMove, width + 4, Qt::LeftButton);
  EXPECT_EQ(goals->width(), width);
  send(QEvent::MouseMove, width + 14, Qt::LeftButton);
  EXPECT_EQ(goals->width(), width + 10);
  send(QEvent::MouseButtonRelease, width + 14, Qt::NoButton);
}

TEST_F(PanesTest, GoalsThatAreNotWantedStayHidden) {
  panes.setGoalsWanted(false);
  EXPECT_EQ(shownAt(90), "p");
  EXPECT_FALSE(panes.hideGoals());
  panes.bringToFront(Panes::Pane::goals);
  EXPECT_EQ(shownAt(45), "p");
}

}  // namespace
}  // namespace vemra::desk
