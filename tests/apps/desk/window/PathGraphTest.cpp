#include "apps/desk/window/PathGraph.hpp"

#include <QAccessible>
#include <QImage>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// Where the star of the person whom the path leads to is: the middle of what has its colour.
QPoint brightStar(const QImage& image, const QColor& bright) {
  QRect found;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y) == bright) found |= QRect(x, y, 1, 1);
    }
  }
  EXPECT_FALSE(found.isNull()) << "nothing is drawn in that colour";
  EXPECT_LT(found.height(), 20) << "one star";
  return found.center();
}

class PathGraphTest : public ::testing::Test {
 protected:
  QPoint brightStar() {
    graph.resize(220, graph.heightForWidth(220));
    return desk::brightStar(graph.grab().toImage(), graph.palette().color(QPalette::Highlight));
  }

  PathGraph graph{{"Ada", "Bo", "Dee"}};
};

TEST_F(PathGraphTest, TheBrightStarIsThePersonWhomThePathLeadsTo) {
  const QPoint star = brightStar();
  EXPECT_GT(star.y(), graph.height() * 2 / 3) << "the last of three";
  EXPECT_LT(star.x(), graph.width() / 2) << "its name is read behind it";
}

TEST_F(PathGraphTest, IsMirroredWhereOneReadsFromTheRight) {
  const QPoint before = brightStar();
  graph.setLayoutDirection(Qt::RightToLeft);
  const QPoint mirrored = brightStar();
  EXPECT_NEAR(mirrored.x(), graph.width() - before.x(), 2);
  EXPECT_EQ(mirrored.y(), before.y());
}

TEST_F(PathGraphTest, SaysThePathToWhoDoesNotSeeIt) {
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&graph);
  EXPECT_EQ(heard->text(QAccessible::Name), "Path to Dee");
  EXPECT_EQ(heard->text(QAccessible::Description), "Ada, then Bo, then Dee");
}

}  // namespace
}  // namespace vemra::desk
