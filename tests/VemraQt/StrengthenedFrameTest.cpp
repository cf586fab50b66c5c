// Where the outline of a control is drawn over the frame of the application's style.

#include "VemraQt/widgets/ElementWidget.hpp"

#include <memory>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QScopeGuard>
#include <QStyleFactory>
#include <gtest/gtest.h>

using namespace vemra;

namespace {

bool isStrengthened(QPushButton& button) {
  button.resize(80, 30);
  button.ensurePolished();
  QImage picture(button.size(), QImage::Format_ARGB32);
  picture.fill(Qt::transparent);
  const QImage before = picture.copy();
  QPainter painter(&picture);
  qt::strengthenFrame(painter, button, *button.style(), qt::Theme());
  painter.end();
  return picture != before;
}

class StrengthenedFrame : public ::testing::Test {
 protected:
  void use(QStyle* style) {
    button.setStyle(style);
    used.reset(style);
  }

  std::unique_ptr<QStyle> used;
  QPushButton button;
};

}  // namespace

TEST_F(StrengthenedFrame, OnlyStylesWithColoursOfTheirOwnAreStrengthened) {
  use(QStyleFactory::create("fusion"));
  EXPECT_FALSE(isStrengthened(button));
  use(QStyleFactory::create("windows"));
  EXPECT_TRUE(isStrengthened(button));
}

TEST_F(StrengthenedFrame, AProxyIsLikeTheStyleBehindIt) {
  use(new QProxyStyle("fusion"));
  EXPECT_FALSE(isStrengthened(button));
  use(new QProxyStyle(new QProxyStyle("fusion")));
  EXPECT_FALSE(isStrengthened(button));
  use(new QProxyStyle("windows"));
  EXPECT_TRUE(isStrengthened(button));
}

TEST_F(StrengthenedFrame, AStyleSheetDecidesAloneAboutItsFrames) {
  use(QStyleFactory::create("windows"));
  button.setStyleSheet("QPushButton { border: none }");
  EXPECT_FALSE(isStrengthened(button));
}

TEST(StrengthenedFrames, AStyleSheetOfTheApplicationDecidesAloneAboutItsFrames) {
  const auto end = qScopeGuard([] { qApp->setStyleSheet({}); });
  qApp->setStyleSheet("QPushButton { border: none }");
  QPushButton button;
  EXPECT_FALSE(isStrengthened(button));
}
