// The accessible object of a goal without a widget.

#include "VemraQt/atspi/IdentifierSource.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "tests/apps/desk/window/ShownGoalList.hpp"

#include <QAccessible>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

class AccessibleGoalsTest : public ShownGoalList {
 protected:
  AccessibleGoalsTest() { show(1000); }

  void show(int count) {
    std::vector<GoalListing> goals;
    for (int i = 0; i < count; ++i) {
      goals.push_back({"g" + std::to_string(i), "Goal " + std::to_string(i)});
    }
    list.setGoals(goals, "g0");
    QApplication::processEvents();
  }
  /// The goal of that index.
  QAccessibleInterface& goal(int index) const {
    return *QAccessible::queryAccessibleInterface(list.viewport())->child(1 + index);
  }
};

TEST_F(AccessibleGoalsTest, AGoalHasNoChildren) {
  QAccessibleInterface& far = goal(900);
  ASSERT_EQ(far.object(), nullptr);
  EXPECT_EQ(far.childCount(), 0);
  EXPECT_EQ(far.child(0), nullptr);
  EXPECT_EQ(far.childAt(far.rect().x(), far.rect().y()), nullptr);
  EXPECT_EQ(far.indexOfChild(&goal(0)), -1);
  EXPECT_EQ(far.window(), list.windowHandle());
}

TEST_F(AccessibleGoalsTest, AGoalHasItsPositionAmongTheGoals) {
  using Attributes = QMap<QString, QString>;
  const auto attributes = [](QAccessibleInterface& object) {
    Attributes all;
    for (const auto* source : qt::atspi::identifierSources()) {
      all.insert(source->attributes(QAccessible::uniqueId(&object)));
    }
    return all;
  };
  EXPECT_EQ(attributes(goal(0)), (Attributes{{"posinset", "1"}, {"setsize", "1000"}}));
  EXPECT_EQ(attributes(goal(900)), (Attributes{{"posinset", "901"}, {"setsize", "1000"}}));
  EXPECT_EQ(attributes(goal(-1)), Attributes()) << "the heading";
}

TEST_F(AccessibleGoalsTest, AGoalIsInvisibleWhileItsListIs) {
  QAccessibleInterface& far = goal(900);
  EXPECT_FALSE(far.state().invisible);
  list.hide();
  EXPECT_TRUE(far.state().invisible);
}

TEST_F(AccessibleGoalsTest, AGoalCanBePressedAndFocusedAndEachDoesItsOwn) {
  auto* actions = goal(900).actionInterface();
  ASSERT_TRUE(actions);
  EXPECT_THAT(actions->actionNames(),
              ::testing::UnorderedElementsAre(QAccessibleActionInterface::pressAction(),
                                              QAccessibleActionInterface::setFocusAction()));
  actions->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(chosen.empty()) << "the focus opens nothing";
  EXPECT_EQ(list.focusWidget(), list.row(900));
  actions->doAction(QAccessibleActionInterface::increaseAction());
  EXPECT_TRUE(chosen.empty());
}

TEST_F(AccessibleGoalsTest, AGoalWithAWidgetHasTheSameActions) {
  QAccessibleInterface& near = goal(1);
  ASSERT_EQ(near.object(), list.row(1));
  EXPECT_EQ(near.role(), QAccessible::RadioButton);
  EXPECT_TRUE(near.state().checkable);
  EXPECT_FALSE(near.state().checked);
  EXPECT_TRUE(goal(0).state().checked);
  auto* actions = near.actionInterface();
  EXPECT_THAT(actions->actionNames(),
              ::testing::UnorderedElementsAre(QAccessibleActionInterface::pressAction(),
                                              QAccessibleActionInterface::setFocusAction()));
  actions->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_TRUE(chosen.empty());
  EXPECT_EQ(list.focusWidget(), list.row(1));
  actions->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_THAT(chosen, ::testing::ElementsAre("g1"));
}

TEST_F(AccessibleGoalsTest, TheFirstGoalBeyondAShorterListIsRemoved) {
  QAccessibleInterface& last = goal(999);
  QAccessibleInterface& before = goal(998);
  show(999);
  EXPECT_FALSE(last.isValid());
  EXPECT_TRUE(before.isValid());
}

}  // namespace
}  // namespace vemra::desk
