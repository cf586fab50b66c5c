#include "apps/desk/window/GoalRow.hpp"

#include <string>

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class GoalRowTest : public ::testing::Test {
 protected:
  GoalRowTest() {
    row.resize(200, 60);
    row.show();
  }
  ~GoalRowTest() override { QToolTip::hideText(); }

  /// The row's accessible name.
  std::string name() {
    return QAccessible::queryAccessibleInterface(&row)->text(QAccessible::Name).toStdString();
  }

  /// The tool tip after the mouse has rested on the row; "" when there is none.
  std::string toolTip() {
    const QPoint middle = row.rect().center();
    QHelpEvent help(QEvent::ToolTip, middle, row.mapToGlobal(middle));
    QApplication::sendEvent(&row, &help);
    if (!help.isAccepted()) return "";  // Qt hides an earlier one a little later
    return QToolTip::isVisible() ? QToolTip::text().toStdString() : "";
  }

  GoalRow row;
};

QString words(int count) {
  return QStringLiteral("word ").repeated(count) + "end";
}

TEST_F(GoalRowTest, ALongTitleIsNamedInFullAndHasAToolTip) {
  row.setTitle(words(100));
  EXPECT_EQ(name(), words(100).toStdString());
  EXPECT_NE(toolTip().find(words(100).toStdString()), std::string::npos) << toolTip();
}

TEST_F(GoalRowTest, ATitleThatFitsHasNoToolTip) {
  row.setTitle("Find a design lead");
  EXPECT_EQ(name(), "Find a design lead");
  EXPECT_EQ(toolTip(), "");
  row.resize(30, 60);
  EXPECT_NE(toolTip(), "") << "it no longer fits";
  row.resize(200, 60);
  EXPECT_EQ(toolTip(), "") << "it fits again";
}

TEST_F(GoalRowTest, TheToolTipIsLiteral) {
  row.setTitle("<b>Ada</b> &amp; \"Bo\" " + words(100));
  const std::string shown = toolTip();
  EXPECT_NE(shown.find("&lt;b&gt;Ada&lt;/b&gt; &amp;amp; "), std::string::npos) << shown;
}

TEST_F(GoalRowTest, AnEndlessTitleIsNamedInFullAndHasAToolTipThatFitsAScreen) {
  const QString endless = words(20'000);
  row.setTitle(endless);
  EXPECT_EQ(name(), endless.toStdString());
  EXPECT_LT(toolTip().size(), 3000U);
  EXPECT_NE(toolTip(), "");
}

TEST_F(GoalRowTest, ACutToolTipEndsInAnEllipsisAndCutsNoCharacter) {
  const QString rest = QString::fromUtf8("\U0001F600").repeated(600);
  row.setTitle(QString(1000, u'a') + rest);
  EXPECT_NE(toolTip().find("a…</p>"), std::string::npos) << toolTip();
  row.setTitle(QString(999, u'a') + rest);
  EXPECT_NE(toolTip().find("a\U0001F600…</p>"), std::string::npos) << toolTip();
}

TEST_F(GoalRowTest, ATitleIsCutBetweenCharacters) {
  const auto drawn = [&](const QString& title) {
    row.setTitle(title);
    row.resize(4000, 60);  // so wide that three lines have room for more than is laid out
    return row.grab().toImage();
  };
  const QString face = QString::fromUtf8("\U0001F600");
  EXPECT_EQ(drawn(QString(399, u'a') + face.repeated(9)), drawn(QString(399, u'a') + u'…'));
  EXPECT_NE(drawn(QString(398, u'a') + face.repeated(9)), drawn(QString(398, u'a') + u'…'));
}

TEST_F(GoalRowTest, AWordThatIsTooLongForALineContinuesInTheNext) {
  row.setTitle("w");
  const int oneLine = row.heightForWidth(200);
  row.setTitle(QString(200, u'w'));
  EXPECT_EQ(row.heightForWidth(200), oneLine + 2 * row.fontMetrics().lineSpacing());
}

TEST_F(GoalRowTest, TheGroundOfTheOpenGoalLeavesOnePixelAtEachEdge) {
  row.setChecked(true);
  const QImage image = row.grab().toImage();
  const int right = image.width() - 1;
  const int bottom = image.height() - 1;
  const QPoint inside(150, bottom / 2);  // right of the text
  const QColor ground = image.pixelColor(inside);
  for (const QPoint at : {QPoint(1, inside.y()), QPoint(right - 1, inside.y()),
                          QPoint(inside.x(), 1), QPoint(inside.x(), bottom - 1)}) {
    EXPECT_EQ(image.pixelColor(at), ground) << at.x() << ", " << at.y();
  }
  for (const QPoint at : {QPoint(0, inside.y()), QPoint(right, inside.y()), QPoint(inside.x(), 0),
                          QPoint(inside.x(), bottom)}) {
    EXPECT_NE(image.pixelColor(at), ground) << at.x() << ", " << at.y();
  }
}

TEST_F(GoalRowTest, AnswersOtherEventsAsAnyButtonDoes) {
  QPushButton button;
  for (const auto type : {QEvent::EnabledChange, QEvent::FontChange, QEvent::User}) {
    QEvent mine(type);
    QEvent its(type);
    EXPECT_EQ(QApplication::sendEvent(&row, &mine), QApplication::sendEvent(&button, &its)) << type;
  }
}

TEST_F(GoalRowTest, BeforeItsFirstTitleItsTitleIsBlank) {
  EXPECT_EQ(name(), "(no title)");
  row.resize(30, 60);
  EXPECT_NO_FATAL_FAILURE(toolTip());
}

TEST_F(GoalRowTest, ABlankTitleHasTheShownTextAsItsName) {
  row.setTitle("");
  EXPECT_EQ(name(), "(no title)");
  row.setTitle(" \n ");
  EXPECT_EQ(name(), "(no title)");
  row.setTitle("Sail the Baltic");
  EXPECT_EQ(name(), "Sail the Baltic");
  EXPECT_EQ(toolTip(), "");
}

}  // namespace
}  // namespace vemra::desk
