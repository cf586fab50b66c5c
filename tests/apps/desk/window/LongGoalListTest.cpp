// A list of ten thousand goals: shown at once, found by key and by assistive technology.

#include "apps/desk/window/GoalRow.hpp"
#include "tests/apps/desk/window/Keys.hpp"
#include "tests/apps/desk/window/ShownGoalList.hpp"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QScrollBar>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::ElementsAre;

class LongGoalListTest : public ShownGoalList {
 protected:
  /// Goals "g0", "g1", …, every third of them with a title of several lines.
  static std::vector<GoalListing> goals(int count) {
    std::vector<GoalListing> goals;
    for (int i = 0; i < count; ++i) {
      const std::string title = "Goal " + std::to_string(i);
      const std::string more = " with a title that goes on in a second line, or in a third one";
      goals.push_back({"g" + std::to_string(i), i % 3 == 0 ? title + more : title});
    }
    return goals;
  }
  void show(int count, const std::string& open = "g0") {
    list.setGoals(goals(count), open);
    QApplication::processEvents();
  }

  GoalRow& row(std::size_t index) const {
    GoalRow* row = list.row(index);
    if (row == nullptr) throw std::runtime_error("no widget: " + std::to_string(index));
    return *row;
  }
  bool isSeen(std::size_t index) const {
    return list.viewport()->rect().contains(list.rowRect(index));
  }
  std::size_t widgets() const { return list.viewport()->findChildren<GoalRow*>().size(); }
  std::string focused() const {
    const auto* row = qobject_cast<GoalRow*>(list.focusWidget());
    return row ? row->goalID() : "nothing";
  }
  QScrollBar& bar() const { return *list.verticalScrollBar(); }
  QAccessibleInterface& column() const {
    return *QAccessible::queryAccessibleInterface(list.viewport());
  }
  static std::string name(const QAccessibleInterface& element) {
    return element.text(QAccessible::Name).toStdString();
  }
};

TEST_F(LongGoalListTest, OnlyTheRowsNearTheViewportHaveAWidget) {
  QElapsedTimer timer;
  timer.start();
  show(10'000);
  list.grab();
  EXPECT_LT(timer.elapsed(), 2000) << "one widget for each goal took minutes";
  EXPECT_LT(widgets(), 60u);
  for (int value = 0; value < bar().maximum(); value += bar().maximum() / 50) bar().setValue(value);
  EXPECT_LT(widgets(), 120u);
}

TEST_F(LongGoalListTest, ScrollsToTheLastGoalAndBack) {
  show(10'000);
  bar().setValue(bar().maximum());
  EXPECT_EQ(bar().value(), bar().maximum());
  EXPECT_TRUE(isSeen(9999));
  EXPECT_EQ(row(9999).accessibleName(),
            "Goal 9999 with a title that goes on in a second line, or "
            "in a third one");
  EXPECT_EQ(row(9999).geometry(), list.rowRect(9999));
  bar().setValue(0);
  EXPECT_TRUE(isSeen(0));
  EXPECT_GT(row(0).y(), list.heading().geometry().bottom());
}

TEST_F(LongGoalListTest, RowsStayInPlaceWhileRowsAboveThemAreMeasured) {
  show(10'000);
  bar().setValue(bar().maximum() / 2);
  for (int step = 0; step < 100; ++step) {
    std::size_t seen = 0;
    while (!list.row(seen) || !isSeen(seen)) ++seen;
    const int before = row(seen).y();
    bar().setValue(bar().value() - 7);
    ASSERT_EQ(row(seen).y(), before + 7) << step;
  }
}

TEST_F(LongGoalListTest, RowsNeverOverlap) {
  show(1000);
  bar().setValue(bar().maximum() / 3);
  for (std::size_t i = 0; i + 1 < 1000; ++i) {
    EXPECT_EQ(list.rowRect(i).bottom() + 3, list.rowRect(i + 1).top()) << i;
  }
}

TEST_F(LongGoalListTest, AnArrowKeyScrollsTheFocusIn) {
  show(10'000);
  row(0).setFocus();
  bar().setValue(bar().maximum() / 2);
  EXPECT_EQ(focused(), "g0") << "scrolling moves no focus";
  pressKey(row(0), Qt::Key_Down);
  EXPECT_EQ(focused(), "g1");
  EXPECT_TRUE(isSeen(1));
  EXPECT_THAT(chosen, ElementsAre("g1"));
  EXPECT_TRUE(row(1).isChecked());
  EXPECT_FALSE(row(0).isChecked());
}

TEST_F(LongGoalListTest, KeysGoDownRowByRowAlwaysInView) {
  show(300);
  row(0).setFocus();
  for (std::size_t i = 1; i < 100; ++i) {
    pressKey(*list.focusWidget(), Qt::Key_Down);
    ASSERT_EQ(focused(), "g" + std::to_string(i));
    ASSERT_TRUE(isSeen(i)) << i;
  }
  for (std::size_t i = 99; i-- > 0;) {
    pressKey(*list.focusWidget(), Qt::Key_Up);
    ASSERT_EQ(focused(), "g" + std::to_string(i));
    ASSERT_TRUE(isSeen(i)) << i;
  }
  EXPECT_EQ(chosen.size(), 198u);
}

TEST_F(LongGoalListTest, HomeAndEndOpenTheFirstAndTheLastGoal) {
  show(10'000, "g3");
  row(3).setFocus();
  pressKey(row(3), Qt::Key_End);
  EXPECT_TRUE(isSeen(9999));
  EXPECT_EQ(focused(), "g9999");
  pressKey(row(9999), Qt::Key_Home);
  EXPECT_TRUE(isSeen(0));
  EXPECT_THAT(chosen, ElementsAre("g9999", "g0"));
  pressKey(row(0), Qt::Key_Home);
  EXPECT_EQ(chosen.size(), 2u) << "it is open already";
}

TEST_F(LongGoalListTest, SpaceOpensAGoalThatIsScrolledIn) {
  show(10'000);
  row(2).setFocus();
  bar().setValue(bar().maximum());
  pressKey(row(2), Qt::Key_Space);
  EXPECT_TRUE(isSeen(2));
  EXPECT_THAT(chosen, ElementsAre("g2"));
}

TEST_F(LongGoalListTest, TheOpenGoalIsTheOneStopOfTheTabKey) {
  show(10'000, "g50");
  bar().setValue(bar().maximum());
  for (auto* row : list.viewport()->findChildren<GoalRow*>()) {
    if (row->isHidden()) continue;
    EXPECT_EQ((row->focusPolicy() & Qt::TabFocus) != 0, row->goalID() == "g50") << row->goalID();
  }
  row(50).setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(isSeen(50));
}

TEST_F(LongGoalListTest, ScrollsToAGoalThatIsOpenedAndNotBackWhenTheStoreChanges) {
  show(10'000, "g5000");
  EXPECT_TRUE(isSeen(5000));
  EXPECT_TRUE(row(5000).isChecked());
  bar().setValue(0);
  show(9'999, "g5000");
  EXPECT_EQ(bar().value(), 0);
  EXPECT_TRUE(row(5000).isChecked());
}

TEST_F(LongGoalListTest, AddedAndRemovedGoalsLeaveTheRowsInViewInPlace) {
  show(10'000);
  bar().setValue(bar().maximum() / 2);
  std::size_t seen = 0;
  while (!list.row(seen) || !isSeen(seen)) ++seen;
  const int before = row(seen).y();
  auto changed = goals(9'000);
  changed[4].title = "Else";
  list.setGoals(changed, "g0");
  EXPECT_NEAR(row(seen).y(), before, 60);
}

TEST_F(LongGoalListTest, AnotherWidthLeavesTheRowsInView) {
  show(10'000, "g5000");
  list.resize(400, 500);
  QApplication::processEvents();
  EXPECT_TRUE(isSeen(5000));
  EXPECT_EQ(row(5000).width(), list.viewport()->width() - 20);
  EXPECT_EQ(list.heading().width(), row(5000).width());
}

TEST_F(LongGoalListTest, AssistiveTechnologyFindsEveryGoal) {
  show(10'000);
  ASSERT_EQ(column().childCount(), 10'001);
  EXPECT_EQ(name(*column().child(0)), "Goals");
  QAccessibleInterface& near = *column().child(1);
  EXPECT_EQ(near.object(), &row(0));
  EXPECT_EQ(QAccessible::uniqueId(near.parent()), QAccessible::uniqueId(&column()));
  EXPECT_EQ(column().indexOfChild(&near), 1);
  QAccessibleInterface& far = *column().child(5001);
  EXPECT_EQ(far.parent(), &column());
  EXPECT_EQ(column().indexOfChild(&far), 5001);
  EXPECT_EQ(column().child(5001), &far);
  EXPECT_EQ(name(far), "Goal 5000");
  EXPECT_EQ(far.role(), near.role());
  EXPECT_EQ(far.role(), QAccessible::RadioButton);
  for (const auto* element : {&near, &far}) {
    EXPECT_TRUE(element->state().checkable && element->state().focusable);
    EXPECT_FALSE(element->state().disabled || element->state().invisible);
  }
  EXPECT_TRUE(near.state().checked);
  EXPECT_FALSE(far.state().checked);
  EXPECT_TRUE(far.state().offscreen);
  EXPECT_GT(far.rect().top(), list.mapToGlobal(QPoint(0, 500)).y());
  EXPECT_EQ(column().child(10'001), nullptr);
  EXPECT_EQ(column().child(-1), nullptr);
  const QPoint middle = near.rect().center();
  EXPECT_EQ(column().childAt(middle.x(), middle.y()), &near);
  EXPECT_EQ(widgets(), list.viewport()->findChildren<GoalRow*>().size()) << "asking makes no rows";
}

TEST_F(LongGoalListTest, AClientPressesAndFocusesAGoalFarAway) {
  show(10'000);
  QAccessibleInterface& far = *column().child(5001);
  far.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_THAT(chosen, ElementsAre("g5000"));
  EXPECT_TRUE(row(5000).isChecked());
  EXPECT_FALSE(row(0).isChecked());
  column().child(7001)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_EQ(focused(), "g7000");
  EXPECT_TRUE(isSeen(7000));
}

TEST_F(LongGoalListTest, ARemovedGoalAnswersLikeAnEmptyObject) {
  show(10'000);
  QAccessibleInterface& far = *column().child(9001);
  show(100);
  EXPECT_FALSE(far.isValid());
  EXPECT_EQ(name(far), "");
  EXPECT_TRUE(far.state().disabled);
  EXPECT_TRUE(far.rect().isNull());
  far.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  far.actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(chosen.empty());
  EXPECT_EQ(column().indexOfChild(&far), -1);
}

TEST_F(LongGoalListTest, GoalsOfADestroyedListAnswerLikeEmptyObjects) {
  auto window = std::make_unique<QWidget>();
  auto* inside = new GoalList(window.get());
  inside->setGoals(goals(1000), "g0");
  window->show();
  QAccessibleInterface& column = *QAccessible::queryAccessibleInterface(inside->viewport());
  const QAccessible::Id far = QAccessible::uniqueId(column.child(901));
  inside->row(0)->setFocus();
  window.reset();
  EXPECT_EQ(QAccessible::accessibleInterface(far), nullptr);
}

}  // namespace
}  // namespace vemra::desk
