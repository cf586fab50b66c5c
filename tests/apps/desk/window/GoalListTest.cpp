#include "apps/desk/window/GoalRow.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/window/Keys.hpp"
#include "tests/apps/desk/window/ShownGoalList.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::ElementsAre;

class GoalListTest : public ShownGoalList {
 protected:
  /// The rows from top to bottom.
  std::vector<GoalRow*> rows() const {
    std::vector<GoalRow*> rows;
    for (auto* row : list.viewport()->findChildren<GoalRow*>()) {
      if (!row->isHidden()) rows.push_back(row);
    }
    std::ranges::sort(rows, {}, [](const GoalRow* row) { return row->y(); });
    return rows;
  }
  std::vector<std::string> titles() const {
    std::vector<std::string> titles;
    for (const GoalRow* row : rows()) titles.push_back(row->text().toStdString());
    return titles;
  }
  std::string open() const {
    std::string open;
    for (const GoalRow* row : rows()) {
      if (row->isChecked()) open += row->goalID();
    }
    return open;
  }
};

TEST_F(GoalListTest, ShowsTheGoalsInOrderBelowTheirHeading) {
  list.setGoals({{"a", "First"}, {"b", "Second"}, {"c", "Third"}}, "b");
  EXPECT_THAT(titles(), ElementsAre("First", "Second", "Third"));
  EXPECT_EQ(open(), "b");
  EXPECT_EQ(list.findChild<QLabel*>()->text(), "Goals");
  EXPECT_EQ(list.accessibleName(), "Goals");
  EXPECT_EQ(list.objectName(), "desk.goals");
  EXPECT_EQ(rows()[2]->objectName(), "desk.goal.c");
  QApplication::processEvents();
  EXPECT_LT(list.findChild<QLabel*>()->mapTo(&list, QPoint()).y(),
            rows()[0]->mapTo(&list, QPoint()).y());
  EXPECT_LT(rows()[2]->geometry().bottom(), 300) << "the remaining room is below them";
}

TEST_F(GoalListTest, GetsShorterAndLonger) {
  list.setGoals({{"a", "First"}, {"b", "Second"}, {"c", "Third"}}, "a");
  list.setGoals({{"c", "Third"}}, "c");
  EXPECT_THAT(titles(), ElementsAre("Third"));
  EXPECT_EQ(open(), "c");
  EXPECT_EQ(rows()[0]->objectName(), "desk.goal.c");
  list.setGoals({}, "");
  EXPECT_TRUE(rows().empty());
  list.setGoals({{"a", "First"}, {"b", "Second"}}, "b");
  EXPECT_THAT(titles(), ElementsAre("First", "Second"));
  EXPECT_EQ(open(), "b");
}

TEST_F(GoalListTest, AGoalOfAnEqualIdIsTheOpenOne) {
  list.setGoals({{"e\u0301", "First"}, {"b", "Second"}}, "\u00e9");
  EXPECT_EQ(open(), "e\u0301");
}

TEST_F(GoalListTest, ARowThatStaysKeepsTheFocusAndHandsOutItsNewGoal) {
  list.setGoals({{"a", "First"}, {"b", "Second"}}, "a");
  QApplication::processEvents();  // rows are shown in the next turn
  GoalRow* const row = rows()[1];
  row->setFocus();
  list.setGoals({{"a", "First"}, {"x", "Else"}, {"y", "More"}}, "a");
  EXPECT_EQ(rows()[1], row);
  EXPECT_TRUE(row->hasFocus());
  row->click();
  EXPECT_THAT(chosen, ElementsAre("x"));
  EXPECT_EQ(open(), "x");
}

TEST_F(GoalListTest, AListenerMayChangeTheList) {
  list.setGoals({{"a", "First"}, {"b", "Second"}}, "a");
  QObject::connect(&list, &GoalList::goalChosen, [this](const std::string& goalID) {
    list.setGoals({{"a", "First"}, {"z", "Other"}}, "a");
    chosen.push_back("still " + goalID);
  });
  rows()[1]->click();
  EXPECT_THAT(chosen, ElementsAre("b", "still b"));
}

TEST_F(GoalListTest, ArrowKeysGoToEitherEndAndNoFurther) {
  list.setGoals({{"a", "First"}, {"b", "Second"}, {"c", "Third"}}, "a");
  QApplication::processEvents();
  rows()[0]->setFocus();
  for (int i = 0; i < 3; ++i) pressKey(*list.focusWidget(), Qt::Key_Down);
  EXPECT_THAT(chosen, ElementsAre("b", "c"));
  EXPECT_TRUE(rows()[2]->hasFocus());
  for (int i = 0; i < 3; ++i) pressKey(*list.focusWidget(), Qt::Key_Up);
  EXPECT_THAT(chosen, ElementsAre("b", "c", "b", "a"));
  EXPECT_TRUE(rows()[0]->hasFocus());
}

TEST_F(GoalListTest, NeverScrollsSideways) {
  list.setGoals({{"a", QString(300, u'W').toStdString()}}, "a");
  QApplication::processEvents();
  EXPECT_LE(rows()[0]->width(), list.viewport()->width());
  EXPECT_EQ(list.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

/// The painting of a row of the list.
class GoalRowPaint : public ::testing::Test {
 protected:
  GoalRowPaint() {
    row.setTitle("Find a design lead");
    row.resize(220, 40);
  }
  /// The number of pixels of a picture of the row that have exactly that colour.
  int pixels(const QColor& colour) {
    const QImage image = row.grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
  }
  static QColor inactive(QPalette::ColorRole role) {
    return QApplication::palette().color(QPalette::Inactive, role);
  }

  GoalRow row;
};

// A highlight with too little contrast is changed (ColoursTest).
TEST_F(GoalRowPaint, TheOpenGoalIsHighlighted) {
  QPalette palette = row.palette();
  palette.setColor(QPalette::Highlight, QColor(0, 60, 120));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  row.setPalette(palette);
  EXPECT_EQ(pixels(QColor(0, 60, 120)), 0);
  row.setChecked(true);
  EXPECT_GT(pixels(QColor(0, 60, 120)), 220 * 40 / 2);
}

TEST_F(GoalRowPaint, TheMouseAndTheFocusAreShown) {
  const QImage plain = row.grab().toImage();
  row.setAttribute(Qt::WA_UnderMouse, true);
  const QImage under = row.grab().toImage();
  EXPECT_NE(under, plain);
  EXPECT_NE(under.pixelColor(110, 36), plain.pixelColor(110, 36)) << "a ground, not a frame alone";
  row.setChecked(true);
  const QImage open = row.grab().toImage();
  row.setAttribute(Qt::WA_UnderMouse, false);
  EXPECT_EQ(row.grab().toImage(), open) << "the open goal looks the same under the mouse";
}

TEST_F(GoalRowPaint, TheFocusHasARing) {
  const QImage without = row.grab().toImage();
  row.show();
  qttest::activate(row);
  row.setFocus();
  ASSERT_TRUE(row.hasFocus());
  const QImage with = row.grab().toImage();
  EXPECT_NE(with.pixelColor(110, 3), without.pixelColor(110, 3)) << "along the upper edge";
  row.setChecked(true);
  EXPECT_NE(row.grab().toImage().pixelColor(110, 3),
            QApplication::palette().color(QPalette::Active, QPalette::Highlight));
}

TEST_F(GoalRowPaint, ItIsAsHighAsItsLinesUpToThree) {
  const int line = row.fontMetrics().lineSpacing();
  const auto heightOf = [&](int words) {
    row.setTitle(QString("wordword ").repeated(words));
    return row.heightForWidth(120);
  };
  const int one = heightOf(1);
  EXPECT_EQ(one, line + 16);
  EXPECT_EQ(heightOf(2), one + line);
  EXPECT_EQ(heightOf(3), one + 2 * line);
  EXPECT_EQ(heightOf(30), one + 2 * line);
  row.setTitle("wordword wordword");
  EXPECT_GT(row.heightForWidth(120), row.heightForWidth(400)) << "a wider row needs fewer lines";
  EXPECT_EQ(row.sizeHint(), QSize(200, row.heightForWidth(200)));
  EXPECT_EQ(row.minimumSizeHint(), QSize(80, one));
  EXPECT_TRUE(row.hasHeightForWidth());
  EXPECT_TRUE(row.sizePolicy().hasHeightForWidth());
  EXPECT_GT(row.heightForWidth(0), 0) << "narrower than its margins";
}

TEST_F(GoalRowPaint, ATitleThatDoesNotFitEndsInAnEllipsis) {
  row.setTitle(QString("wordword ").repeated(30));
  row.resize(120, row.heightForWidth(120));
  const QImage cut = row.grab().toImage();
  row.setTitle("wordword wordword wordword");
  EXPECT_NE(row.grab().toImage(), cut) << "the last line shows that there is more";
  row.setTitle("wordword\nwordword\t wordword");
  const QImage broken = row.grab().toImage();
  row.setTitle("wordword wordword wordword");
  EXPECT_EQ(row.grab().toImage(), broken) << "line breaks are blanks";
}

TEST_F(GoalRowPaint, BehaveAsOneOfAGroup) {
  EXPECT_TRUE(row.isCheckable());
  EXPECT_TRUE(row.autoExclusive());
  EXPECT_EQ(row.cursor().shape(), Qt::PointingHandCursor);
  row.setTitle("Fish & chips");
  EXPECT_EQ(row.text(), "Fish && chips");
}

TEST_F(GoalRowPaint, AToolTipHasNoMoreLinesThanAScreen) {
  row.setTitle(QString("w\n").repeated(900));
  const QPoint middle = row.rect().center();
  row.show();
  QHelpEvent help(QEvent::ToolTip, middle, row.mapToGlobal(middle));
  QApplication::sendEvent(&row, &help);
  EXPECT_EQ(QToolTip::text().count(u'\n'), 30);
  EXPECT_TRUE(QToolTip::text().contains("w\n…")) << "it says that it is cut";
  QToolTip::hideText();
}

}  // namespace
}  // namespace vemra::desk
