// A path of more people than are drawn at once.

#include "apps/desk/window/PathGraph.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/SidePane.hpp"

#include <QApplication>
#include <QPushButton>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class SidePanePathTest : public ::testing::Test {
 protected:
  SidePanePathTest() {
    pane.resize(300, 2000);
    std::vector<std::string> people;
    for (std::size_t i = 0; i < 2 * mostEntriesAtOnce + 1; ++i) {
      people.push_back("p" + std::to_string(i));
    }
    path.personRefs = people;
    pane.showPath(path, {people.begin(), people.end()});
  }

  QList<PathGraph*> stretches() const { return pane.findChildren<PathGraph*>(); }
  void more() const {
    pane.findChild<QPushButton*>("desk.side.more")->click();
    QApplication::processEvents();
  }
  /// Whether it contains the star of the path's last person.
  static bool hasBrightStar(PathGraph& stretch) {
    const QColor bright = stretch.palette().color(QPalette::Highlight);
    stretch.resize(220, stretch.heightForWidth(220));
    const QImage image = stretch.grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == bright) return true;
      }
    }
    return false;
  }

  SidePane pane;
  GoalPathCandidateDTO path;
};

TEST_F(SidePanePathTest, TheTargetIsInTheLastPartAndNamedInEveryPart) {
  ASSERT_EQ(stretches().size(), 1);
  more();
  more();
  ASSERT_EQ(stretches().size(), 3);
  EXPECT_FALSE(hasBrightStar(*stretches()[0]));
  EXPECT_FALSE(hasBrightStar(*stretches()[1]));
  EXPECT_TRUE(hasBrightStar(*stretches()[2]));
  for (const PathGraph* stretch : stretches()) {
    EXPECT_EQ(stretch->accessibleName(), "Path to p40");
  }
  EXPECT_EQ(stretches()[2]->accessibleDescription(), "p40");
}

}  // namespace
}  // namespace vemra::desk
