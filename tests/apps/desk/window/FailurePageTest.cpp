#include "apps/desk/window/FailurePage.hpp"
#include "tests/apps/desk/window/HeardAlerts.hpp"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

class FailurePageTest : public ::testing::Test {
 protected:
  FailurePageTest() {
    page.resize(600, 500);
    page.show();
    page.setReason("The store is <b>away</b>.");
    QApplication::processEvents();
  }

  QLabel& label(const QString& text) const {
    for (auto* label : page.findChildren<QLabel*>()) {
      if (label->text() == text) return *label;
    }
    throw std::runtime_error("no label: " + text.toStdString());
  }
  QPushButton& again() const { return *page.findChild<QPushButton*>("desk.failure.again"); }

  FailurePage page;
};

TEST_F(FailurePageTest, ShowsTheFailureAndItsReasonAlsoToAssistiveTechnology) {
  EXPECT_TRUE(label("The goal could not be loaded").isVisible());
  EXPECT_EQ(label("The store is <b>away</b>.").textFormat(), Qt::PlainText);
  EXPECT_EQ(page.accessibleName(), "The goal could not be loaded. The store is <b>away</b>.");
}

TEST_F(FailurePageTest, IsAtTheTopOfItsPageInLinesThatKeepTheirHeight) {
  const QRect title = label("The goal could not be loaded").geometry();
  const QRect reason = label("The store is <b>away</b>.").geometry();
  EXPECT_EQ(title.topLeft(), QPoint(40, 24));
  EXPECT_EQ(reason.top() - title.bottom() - 1, 8);
  EXPECT_EQ(again().geometry().top() - reason.bottom() - 1, 8 + 10);
  EXPECT_EQ(again().size(), again().sizeHint());
  EXPECT_EQ(again().x(), 40);
}

TEST_F(FailurePageTest, EachFailureIsAnnouncedAlsoInTheSameWords) {
  HeardAlerts alerts;
  page.setReason("The store is <b>away</b>.");
  EXPECT_THAT(alerts.take(),
              ::testing::ElementsAre("The goal could not be loaded. The store is <b>away</b>."));
}

TEST_F(FailurePageTest, ItsLinesFollowTheFontAndTheDirection) {
  page.resize(1600, 500);
  QApplication::processEvents();
  const int line = label("The store is <b>away</b>.").width();
  QFont large = page.font();
  large.setPointSizeF(large.pointSizeF() * 1.5);
  page.setFont(large);
  QApplication::processEvents();
  EXPECT_GT(label("The store is <b>away</b>.").width(), line);
  EXPECT_EQ(label("The store is <b>away</b>.").x(), 40);
  page.setLayoutDirection(Qt::RightToLeft);
  QApplication::processEvents();
  EXPECT_EQ(label("The store is <b>away</b>.").geometry().right() + 1, 1600 - 40);
}

}  // namespace
}  // namespace vemra::desk
