#include "VemraPlatform/ui/View.hpp"
#include "apps/desk/window/GoalPage.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <string>

#include <QApplication>
#include <QScrollBar>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

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
