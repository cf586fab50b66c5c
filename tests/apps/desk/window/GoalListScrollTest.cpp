// The scroll range of the list of goals, and the estimated height of its rows.

#include "apps/desk/window/GoalRow.hpp"
#include "tests/apps/desk/window/Keys.hpp"
#include "tests/apps/desk/window/ShownGoalList.hpp"

#include <QLabel>
#include <QScrollBar>

namespace vemra::desk {
namespace {

class GoalListScrollTest : public ShownGoalList {
 protected:
  GoalListScrollTest() { show(1000, "g0"); }

  void show(int count, const std::string& open) {
    std::vector<GoalListing> goals;
    for (int i = 0; i < count; ++i) {
      goals.push_back({"g" + std::to_string(i), "Goal " + std::to_string(i)});
    }
    list.setGoals(goals, open);
    QApplication::processEvents();
  }
  QScrollBar& bar() const { return *list.verticalScrollBar(); }
};

TEST_F(GoalListScrollTest, AnotherFontMeasuresTheRowsAnew) {
  const int before = list.rowRect(0).height();
  QFont large = list.font();
  large.setPointSizeF(2 * large.pointSizeF());
  list.setFont(large);
  QApplication::processEvents();
  EXPECT_GT(list.rowRect(0).height(), before);
  EXPECT_EQ(list.rowRect(0).height(), list.row(0)->heightForWidth(list.row(0)->width()));
  EXPECT_GT(list.rowRect(900).height(), before) << "and the others are estimated anew";
}

TEST_F(GoalListScrollTest, OneStepOfTheScrollBarIsHalfARow) {
  EXPECT_EQ(bar().singleStep(), list.rowRect(900).height() / 2);
  EXPECT_EQ(bar().pageStep(), list.viewport()->height());
}

TEST_F(GoalListScrollTest, TheHeadingIsAboveTheFirstTitleAndAlignedWithIt) {
  const QRect heading = list.heading().contentsRect().translated(list.heading().pos());
  EXPECT_EQ(heading.left(), list.rowRect(0).left() + 10) << "a row's own margin";
  EXPECT_EQ(list.rowRect(0).top() - heading.bottom() - 1, 8);
}

TEST_F(GoalListScrollTest, TheScrollBarBeginsAtTheTopAndHasNoRangeWhenAllRowsFit) {
  EXPECT_EQ(bar().minimum(), 0);
  EXPECT_EQ(list.rowRect(999).bottom() + 1 + 14 - list.viewport()->height(), bar().maximum());
  show(3, "g0");
  EXPECT_EQ(bar().minimum(), 0);
  EXPECT_EQ(bar().maximum(), 0);
}

TEST_F(GoalListScrollTest, ARowThatIsInViewToItsEdgeIsNotScrolledTo) {
  bar().setValue(list.rowRect(0).top());
  ASSERT_EQ(list.rowRect(0).top(), 0);
  const int value = bar().value();
  ASSERT_GT(value, 0);
  list.focusRow(0);
  EXPECT_EQ(bar().value(), value);
  bar().setValue(value + 1);
  list.focusRow(0);
  EXPECT_EQ(bar().value(), 0) << "the heading comes with the first row";
}

TEST_F(GoalListScrollTest, WithoutAnOpenGoalNoneIsMarked) {
  show(10, "g3");
  EXPECT_TRUE(list.row(3)->isChecked());
  show(10, "missing");
  for (std::size_t i = 0; i < 10; ++i) EXPECT_FALSE(list.row(i)->isChecked()) << i;
}

}  // namespace
}  // namespace vemra::desk
