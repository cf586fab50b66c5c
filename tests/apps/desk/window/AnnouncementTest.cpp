#include "tests/apps/desk/window/Becomes.hpp"
#include "tests/apps/desk/window/HeardAlerts.hpp"

#include <algorithm>
#include <string>

#include <QElapsedTimer>
#include <QWidget>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AnnouncementTest : public ::testing::Test {
 protected:
  AnnouncementTest() { window.show(); }

  QWidget window;
  Announcement announcement{&window};
  HeardAlerts alerts;
};

TEST_F(AnnouncementTest, SentencesOfOneMomentAreAnnouncedTogether) {
  announcement.announceSoon("One.");
  announcement.announceSoon("Two.");
  EXPECT_THAT(alerts.heard, IsEmpty());
  ASSERT_TRUE(becomes([&] { return !alerts.heard.empty(); }));
  EXPECT_THAT(alerts.take(), ElementsAre("One. Two."));
}

TEST_F(AnnouncementTest, SentencesThatFollowWithoutAnEndAreAnnouncedMeanwhile) {
  QElapsedTimer since;
  since.start();
  int sentences = 0;
  const bool isHeard = becomes([&] {
    if (since.elapsed() >= 50 * sentences) announcement.announceSoon(QString::number(++sentences));
    return alerts.heard.size() == 2 || sentences == 60;
  });
  EXPECT_TRUE(isHeard);
  ASSERT_EQ(alerts.heard.size(), 2u) << "in " << since.elapsed() << " ms";
  const std::string both = alerts.heard[0] + " " + alerts.heard[1];
  EXPECT_EQ(both.substr(0, 4), "1 2 ");
  EXPECT_GE(std::ranges::count(both, ' ') + 2, sentences) << "none is lost: " << both;
}

TEST_F(AnnouncementTest, AnOldSentenceLeavesTheAccessibleTree) {
  announcement.announce("Old.");
  EXPECT_TRUE(announcement.isVisible());
  EXPECT_TRUE(becomes([&] { return announcement.isHidden(); }));
  announcement.announce("New.");
  EXPECT_TRUE(announcement.isVisible());
  EXPECT_THAT(alerts.take(), ElementsAre("Old.", "New."));
}

TEST_F(AnnouncementTest, ASentenceWaitsForItsParentHoweverLong) {
  announcement.announce("Before.");
  window.hide();
  alerts.take();
  announcement.announce("Meanwhile.");
  QElapsedTimer since;
  since.start();
  becomes([&] { return since.elapsed() > 5'500; });
  EXPECT_FALSE(announcement.isHidden());
  window.show();
  EXPECT_TRUE(announcement.isVisible());
  EXPECT_THAT(alerts.take(), ElementsAre("Meanwhile."));
}

}  // namespace
}  // namespace vemra::desk
