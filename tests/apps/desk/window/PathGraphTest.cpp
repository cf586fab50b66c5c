#include "apps/desk/window/PathGraph.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

#include <QAccessible>
#include <QImage>
#include <QLabel>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// The position of the last person's star: the middle of the pixels with its colour.
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

TEST_F(PathGraphTest, TheBrightStarIsTheLastPersonOfThePath) {
  const QPoint star = brightStar();
  EXPECT_GT(star.y(), graph.height() * 2 / 3) << "the last of three";
  EXPECT_LT(star.x(), graph.width() / 2) << "its name is read behind it";
}

TEST_F(PathGraphTest, IsMirroredInARightToLeftLayout) {
  const QPoint before = brightStar();
  graph.setLayoutDirection(Qt::RightToLeft);
  const QPoint mirrored = brightStar();
  EXPECT_NEAR(mirrored.x(), graph.width() - before.x(), 2);
  EXPECT_EQ(mirrored.y(), before.y());
}

TEST_F(PathGraphTest, DescribesThePathToAssistiveTechnology) {
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&graph);
  EXPECT_EQ(heard->text(QAccessible::Name), "Path to Dee");
  EXPECT_EQ(heard->text(QAccessible::Description), "Ada, then Bo, then Dee");
}

/// The number of pixels of a picture of the graph with that colour.
int pixels(PathGraph& graph, const QColor& colour) {
  graph.resize(220, graph.heightForWidth(220));
  const QImage image = graph.grab().toImage();
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
  }
  return count;
}

TEST_F(PathGraphTest, StarsAlternateBetweenLeftAndRight) {
  const auto starOfLast = [](const std::vector<QString>& names) {
    PathGraph path(names);
    path.resize(220, path.heightForWidth(220));
    return desk::brightStar(path.grab().toImage(), path.palette().color(QPalette::Highlight));
  };
  const QPoint first = starOfLast({"Ada"});
  const QPoint second = starOfLast({"Ada", "Bo"});
  const QPoint third = starOfLast({"Ada", "Bo", "Dee"});
  EXPECT_NEAR(first.x(), 11, 1);
  EXPECT_NEAR(second.x(), first.x() + 22, 1);
  EXPECT_EQ(third.x(), first.x());
  EXPECT_EQ(third.y() - second.y(), second.y() - first.y());
}

TEST_F(PathGraphTest, ItIsAsHighAsItsNamesAndTheirGaps) {
  const qreal name = std::ceil(QFontMetricsF(graph.font()).height());
  EXPECT_EQ(PathGraph({"Ada"}).heightForWidth(220), std::ceil(name + 16));
  EXPECT_EQ(graph.heightForWidth(220), std::ceil(3 * name + 2 * 34 + 16));
  EXPECT_EQ(PathGraph(std::vector<QString>()).heightForWidth(220), 0);
  const PathGraph wordy({QString("wordword ").repeated(6), "Bo"});
  EXPECT_GT(wordy.heightForWidth(120), wordy.heightForWidth(400));
  EXPECT_EQ(wordy.sizeHint(), QSize(220, wordy.heightForWidth(220)));
  EXPECT_EQ(wordy.minimumSizeHint(), QSize(120, wordy.heightForWidth(220)));
  EXPECT_TRUE(wordy.hasHeightForWidth() && wordy.sizePolicy().hasHeightForWidth());
  EXPECT_GT(wordy.heightForWidth(0), 0) << "a name has some room however narrow it is";
}

TEST_F(PathGraphTest, ANameHasFortyPixelsInTheNarrowestGraph) {
  const auto linesIn = [&](double width, const QString& name) {
    const QFontMetricsF metrics(graph.font());
    const auto flags = Qt::TextWordWrap | Qt::TextWrapAnywhere;
    const QRectF room(0, 0, width, 1000);
    return std::lround(metrics.boundingRect(room, flags, name).height() / metrics.height());
  };
  QString name;  // on one line of 41 pixels, and not on one of 40
  for (const QChar wide : QStringLiteral("wmaert")) {
    for (int count = 0; count < 60 && name.isEmpty(); ++count) {
      const QString some = QString(count % 6, wide) + QString(count / 6, u'i');
      if (linesIn(40, some) == 2 && linesIn(41, some) == 1) name = some;
    }
  }
  ASSERT_FALSE(name.isEmpty());
  EXPECT_GT(PathGraph({name}).heightForWidth(0), PathGraph({name}).heightForWidth(100));
}

TEST_F(PathGraphTest, NeighboursAreJoined) {
  const QColor line = inkOf(ui::ForegroundStyle::tertiary, graph.palette());
  PathGraph one({"Ada"});
  PathGraph two({"Ada", "Bo"});
  EXPECT_EQ(pixels(one, line), 0);
  EXPECT_GT(pixels(two, line), 20);
}

TEST_F(PathGraphTest, TheLineBetweenTwoStarsHasTheQuietColour) {
  const QColor line = inkOf(ui::ForegroundStyle::tertiary, graph.palette());
  PathGraph two({"Ada", "Bo"});
  two.resize(220, two.heightForWidth(220));
  const QImage image = two.grab().toImage();
  const int first = static_cast<int>(8 + QFontMetricsF(two.font()).height() / 2);
  const QPoint last = desk::brightStar(image, two.palette().color(QPalette::Highlight));
  int darkest = 255;  // in the middle, away from both stars and left of the names
  for (int y = first + 15; y < last.y() - 15; ++y) {
    for (int x = 0; x < 35; ++x) darkest = std::min(darkest, image.pixelColor(x, y).lightness());
  }
  EXPECT_NEAR(darkest, line.lightness(), 10);
}

TEST_F(PathGraphTest, APartThatIsContinuedHasNoBrightStar) {
  const QColor bright = graph.palette().color(QPalette::Highlight);
  PathGraph later({"Ada", "Bo"}, "Dee", PathEnd::later);
  EXPECT_EQ(pixels(later, bright), 0);
  EXPECT_EQ(later.accessibleName(), "Path to Dee");
  EXPECT_EQ(later.accessibleDescription(), "Ada, then Bo");
  PathGraph here({"Ada", "Bo"}, "Bo", PathEnd::here);
  EXPECT_GT(pixels(here, bright), 20);
}

TEST_F(PathGraphTest, NamesAreWrittenInTheTextsColour) {
  EXPECT_GT(pixels(graph, graph.palette().color(QPalette::WindowText)), 3);
}

TEST_F(PathGraphTest, ANameCanBeSelectedAndCopied) {
  graph.resize(220, graph.heightForWidth(220));
  graph.show();
  const auto names = graph.findChildren<QLabel*>();
  ASSERT_EQ(names.size(), 3);
  QStringList texts;
  for (const QLabel* name : names) {
    texts.append(name->text());
    EXPECT_TRUE(name->textInteractionFlags() & Qt::TextSelectableByMouse);
    EXPECT_TRUE(graph.rect().contains(name->geometry())) << name->text().toStdString();
  }
  EXPECT_EQ(texts, (QStringList{"Ada", "Bo", "Dee"}));
}

TEST_F(PathGraphTest, APathWithoutPeopleIsReported) {
  const PathGraph empty{std::vector<QString>()};
  EXPECT_EQ(empty.accessibleName(), "A path without people");
  EXPECT_EQ(empty.accessibleDescription(), "");
}

}  // namespace
}  // namespace vemra::desk
