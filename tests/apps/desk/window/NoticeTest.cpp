#include "apps/desk/window/Notice.hpp"

#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class NoticeTest : public ::testing::Test {
 protected:
  QPushButton& button(const QString& name) { return *notice.findChild<QPushButton*>(name); }
  QPushButton& again() { return button("desk.notice.again"); }
  QPushButton& dismiss() { return button("desk.notice.dismiss"); }

  int tries = 0;
  QWidget window;
  Notice notice{&window};
};

TEST_F(NoticeTest, IsHiddenUntilThereIsAFailure) {
  window.show();
  EXPECT_TRUE(notice.isHidden());
  EXPECT_EQ(notice.objectName(), "desk.notice");
  EXPECT_TRUE(notice.autoFillBackground());
  EXPECT_EQ(notice.backgroundRole(), QPalette::AlternateBase);
}

TEST_F(NoticeTest, ShowsAndNamesTheFailureLiterally) {
  notice.show("<b>It</b> & failed");
  EXPECT_FALSE(notice.isHidden());
  EXPECT_EQ(notice.findChild<QLabel*>()->text(), "<b>It</b> & failed");
  EXPECT_EQ(notice.findChild<QLabel*>()->textFormat(), Qt::PlainText);
  EXPECT_EQ(notice.accessibleName(), "<b>It</b> & failed");
}

TEST_F(NoticeTest, OffersToTryAgainOnlyWhenThatIsPossible) {
  notice.show("failed");
  EXPECT_TRUE(again().isHidden());
  EXPECT_FALSE(dismiss().isHidden());
  notice.show("failed", [this] { ++tries; });
  EXPECT_FALSE(again().isHidden());
  notice.show("failed");
  EXPECT_TRUE(again().isHidden());
}

TEST_F(NoticeTest, TryingAgainHidesItAndTriesOnce) {
  notice.show("failed", [this] {
    ++tries;
    EXPECT_TRUE(notice.isHidden()) << "it may be shown again at once";
  });
  again().click();
  EXPECT_EQ(tries, 1);
  EXPECT_TRUE(notice.isHidden());
  again().click();
  EXPECT_EQ(tries, 1);
}

TEST_F(NoticeTest, ANewFailureOfATryIsShown) {
  notice.show("failed", [this] { notice.show("failed again", [this] { ++tries; }); });
  again().click();
  EXPECT_FALSE(notice.isHidden());
  EXPECT_EQ(notice.findChild<QLabel*>()->text(), "failed again");
  again().click();
  EXPECT_EQ(tries, 1);
}

TEST_F(NoticeTest, ItsContentKeepsItsDistanceFromTheEdges) {
  notice.resize(600, notice.sizeHint().height());
  window.show();
  notice.show("failed", [this] { ++tries; });
  notice.grab();  // lays it out
  const int frame = notice.frameWidth();
  EXPECT_EQ(notice.findChild<QLabel*>()->x(), frame + 16);
  EXPECT_EQ(notice.width() - 1 - dismiss().geometry().right(), frame + 12);
  EXPECT_EQ(dismiss().y(), frame + 8);
  EXPECT_EQ(notice.height() - 1 - dismiss().geometry().bottom(), frame + 8);
}

TEST_F(NoticeTest, DismissingHidesItAndTriesNothing) {
  notice.show("failed", [this] { ++tries; });
  dismiss().click();
  EXPECT_TRUE(notice.isHidden());
  EXPECT_EQ(tries, 0);
}

}  // namespace
}  // namespace vemra::desk
