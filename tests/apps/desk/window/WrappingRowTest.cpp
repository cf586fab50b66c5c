#include "apps/desk/window/WrappingRow.hpp"

#include <QLabel>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// Three boxes of 100 by 20 pixels, 10 apart.
class WrappingRowTest : public ::testing::Test {
 protected:
  WrappingRowTest() {
    row->setSpacing(10);
    for (QWidget*& box : boxes) {
      box = new QWidget;
      box->setFixedSize(100, 20);
      row->addWidget(box);
    }
  }

  void resize(int width) {
    window.resize(width, row->heightForWidth(width));
    window.show();
  }

  QPoint place(int box) const { return boxes[box]->pos(); }

  QWidget window;
  WrappingRow* row = new WrappingRow(&window);
  QWidget* boxes[3] = {};
};

TEST_F(WrappingRowTest, AllWidgetsStandInOneLineWhereThereIsRoom) {
  EXPECT_EQ(row->sizeHint(), QSize(320, 20));
  resize(320);
  EXPECT_EQ(window.height(), 20);
  EXPECT_EQ(place(0), QPoint(0, 0));
  EXPECT_EQ(place(1), QPoint(110, 0));
  EXPECT_EQ(place(2), QPoint(220, 0));
}

TEST_F(WrappingRowTest, ALineBeginsBelowWhereTheNextWidgetHasNoRoom) {
  resize(319);
  EXPECT_EQ(window.height(), 50);
  EXPECT_EQ(place(1), QPoint(110, 0));
  EXPECT_EQ(place(2), QPoint(0, 30));
  EXPECT_EQ(row->heightForWidth(209), 80);
  EXPECT_EQ(row->minimumSize(), QSize(100, 20));
}

TEST_F(WrappingRowTest, FromRightToLeftEachLineBeginsAtTheRight) {
  window.setLayoutDirection(Qt::RightToLeft);
  resize(250);
  EXPECT_EQ(place(0), QPoint(150, 0));
  EXPECT_EQ(place(1), QPoint(40, 0));
  EXPECT_EQ(place(2), QPoint(150, 30));
}

TEST_F(WrappingRowTest, AHiddenWidgetTakesNoRoom) {
  boxes[0]->hide();
  EXPECT_EQ(row->sizeHint(), QSize(210, 20));
  resize(210);
  EXPECT_EQ(window.height(), 20);
  EXPECT_EQ(place(1), QPoint(0, 0));
}

}  // namespace
}  // namespace vemra::desk
