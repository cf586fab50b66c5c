#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/Notice.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/window/HeardAlerts.hpp"
#include "tests/apps/desk/window/Keys.hpp"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::ElementsAre;

class NoticeTest : public ::testing::Test {
 protected:
  QPushButton& button(const QString& name) { return *notice.findChild<QPushButton*>(name); }
  QPushButton& again() { return button("desk.notice.again"); }
  QPushButton& dismiss() { return button("desk.notice.dismiss"); }

  /// Shows a failure with "Try again" while the focus is on the control `before`.
  void failBesideControls() {
    window.show();
    qttest::activate(window);
    before.setFocus();
    notice.show("failed", [this] { ++tries; });
  }

  int tries = 0;
  QWidget window;
  Notice notice{&window};
  QPushButton before{"before", &window};
  QPushButton after{"after", &window};
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

TEST_F(NoticeTest, TheNextTabGoesToTryAgainAndPressingItGivesTheFocusBack) {
  failBesideControls();
  EXPECT_TRUE(before.hasFocus()) << "a message takes no focus";
  pressKey(before, Qt::Key_Tab);
  EXPECT_TRUE(again().hasFocus());
  pressKey(again(), Qt::Key_Space);
  EXPECT_EQ(tries, 1);
  EXPECT_TRUE(before.hasFocus());
  pressKey(before, Qt::Key_Tab);
  EXPECT_TRUE(after.hasFocus()) << "Tab is as usual";
}

TEST_F(NoticeTest, ReturnPressesAButtonToo) {
  window.show();
  notice.show("failed", [this] { ++tries; });
  again().setFocus();
  pressKey(again(), Qt::Key_Return);
  EXPECT_EQ(tries, 1);
}

TEST_F(NoticeTest, ShiftTabOnTryAgainGoesBackAndTheFollowingTabIsAsUsual) {
  failBesideControls();
  pressKey(before, Qt::Key_Tab);
  pressKey(again(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(before.hasFocus());
  pressKey(before, Qt::Key_Tab);
  EXPECT_TRUE(after.hasFocus());
}

TEST_F(NoticeTest, ShiftTabIsAsUsualOnceTheFocusHasLeftTheMessage) {
  failBesideControls();
  pressKey(before, Qt::Key_Tab);
  ASSERT_TRUE(again().hasFocus());
  after.setFocus(Qt::MouseFocusReason);
  again().setFocus(Qt::MouseFocusReason);
  pressKey(again(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(after.hasFocus()) << "the previous control of the window";
}

TEST_F(NoticeTest, AMessageWithoutAnythingToTryChangesNoTab) {
  failBesideControls();
  notice.show("exported");
  pressKey(before, Qt::Key_Tab);
  EXPECT_TRUE(after.hasFocus());
}

TEST_F(NoticeTest, PressingTryAgainGivesTheFocusBackToAnElementOfAPage) {
  qt::ViewWidget page(&window);
  page.setEnvironment({});
  page.resize(200, 200);
  page.setRoot(ui::VStack(ui::HorizontalAlignment::leading, 4,
                          {ui::Button("One", [] {}).accessibilityIdentifier("one"),
                           ui::Button("Two", [] {}).accessibilityIdentifier("two")}));
  window.show();
  qttest::activate(window);
  ASSERT_TRUE(page.focus("two"));
  const QWidget* two = window.focusWidget();
  notice.show("failed", [this] { ++tries; });
  pressKey(*window.focusWidget(), Qt::Key_Tab);
  ASSERT_TRUE(again().hasFocus());
  pressKey(again(), Qt::Key_Space);
  EXPECT_EQ(window.focusWidget(), two);
}

TEST_F(NoticeTest, EachMessageOfAVisibleNoticeIsAnnouncedAlsoInTheSameWords) {
  window.show();
  HeardAlerts alerts;
  notice.show("failed");
  EXPECT_THAT(alerts.take(), ElementsAre("failed"));
  notice.show("failed differently");
  EXPECT_THAT(alerts.take(), ElementsAre("failed differently"));
  notice.show("failed differently");
  EXPECT_THAT(alerts.take(), ElementsAre("failed differently"));
}

TEST_F(NoticeTest, ItsButtonsMoveBelowATextThatBecomesLarge) {
  window.resize(600, 400);
  notice.resize(520, 200);
  window.show();
  notice.show("failed", [this] { ++tries; });
  QApplication::processEvents();
  ASSERT_LT(dismiss().y(), notice.findChild<QLabel*>()->geometry().bottom());
  QFont large = notice.font();
  large.setPointSizeF(large.pointSizeF() * 2);
  notice.setFont(large);
  QApplication::processEvents();
  EXPECT_EQ(notice.width(), 520);
  EXPECT_GT(dismiss().y(), notice.findChild<QLabel*>()->geometry().bottom());
}

TEST_F(NoticeTest, DismissingHidesItAndTriesNothing) {
  notice.show("failed", [this] { ++tries; });
  dismiss().click();
  EXPECT_TRUE(notice.isHidden());
  EXPECT_EQ(tries, 0);
}

}  // namespace
}  // namespace vemra::desk
