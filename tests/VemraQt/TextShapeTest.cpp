#include "VemraQt/widgets/TextShape.hpp"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPicture>
#include <gtest/gtest.h>

using vemra::qt::TextShape;

namespace {

TextShape shaped(const QString& text, int width) {
  return TextShape(text, QApplication::font(), width);
}

int lineHeight() {
  return shaped("x", 100).size().height();
}

}  // namespace

TEST(TextShape, AnEmptyTextIsOneLineHigh) {
  EXPECT_EQ(shaped("", 100).size(), QSize(0, lineHeight()));
}

TEST(TextShape, LongWordsBreak) {
  const QSize size = shaped(QString(400, 'm'), 120).size();
  EXPECT_LE(size.width(), 120);
  EXPECT_GT(size.height(), 20 * lineHeight());
}

TEST(TextShape, EveryKindOfLineBreakStartsALine) {
  for (const char16_t* text :
       {u"a\nb", u"a\r\nb", u"a\rb", u"a\u2028b", u"a\u2029b", u"a\u0085b"}) {
    EXPECT_EQ(shaped(QString::fromUtf16(text), 500).size().height(), 2 * lineHeight());
  }
  EXPECT_EQ(shaped("a\n\nb", 500).size().height(), 3 * lineHeight());
}

TEST(TextShape, MarkupIsShownAsText) {
  EXPECT_GT(shaped("<b>bold</b>", 500).size().width(), shaped("bold", 500).size().width() + 20);
  EXPECT_GT(shaped("a&&b", 500).size().width(), shaped("a&b", 500).size().width());
}

TEST(TextShape, IsNeverWiderThanTheGivenWidth) {
  const QString text = QString::fromUtf8(
      "Søren Æ 张伟 محمد علي naïve 👩‍👩‍👧 extraordinarily-long-word");
  for (int width = 24; width < 400; width += 7) {
    EXPECT_LE(shaped(text, width).size().width(), width) << width;
  }
}

TEST(TextShape, RightToLeftTextIsAtTheLeadingEdgeOfThePage) {
  const TextShape shape = shaped(QString::fromUtf8("שלום"), 200);
  const auto inkAt = [&](Qt::LayoutDirection direction) {
    QImage image(200, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    shape.draw(painter, image.rect(), image.rect(), direction);
    painter.end();
    int left = 200, right = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (qGray(image.pixel(x, y)) < 128) left = std::min(left, x), right = std::max(right, x);
      }
    }
    return std::pair(left, right);
  };
  EXPECT_LT(inkAt(Qt::LeftToRight).second, 60);
  EXPECT_GT(inkAt(Qt::RightToLeft).first, 140);
}

// Drawing a long text costs what is seen of it.
TEST(TextShape, DrawsOnlyTheLinesNearTheVisiblePart) {
  QString text;
  for (int i = 0; i < 3000; ++i) text += QStringLiteral("line %1 a\u0301\u0301\n").arg(i);
  const TextShape shape = shaped(text, 200);
  const QRect everything(0, -1'000'000, 200, 2'000'000);
  const auto picture = [&](int from, const QRect& visible) {
    QImage image(200, 300, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const QRect place(0, -from, 200, shape.size().height());
    shape.draw(painter, place, visible, Qt::LeftToRight);
    shape.underline(painter, place, visible, Qt::LeftToRight);
    return image;
  };
  const int end = shape.size().height();
  for (const int from : {0, 1, 777, end / 2, end - 300, end - 10, end + 5'000}) {
    EXPECT_EQ(picture(from, QRect(0, 0, 200, 300)), picture(from, everything)) << from;
  }
  const auto commands = [&](const QRect& visible) {
    QPicture recorded;
    QPainter painter(&recorded);
    shape.draw(painter, QRect(QPoint(0, -end / 2), shape.size()), visible, Qt::LeftToRight);
    painter.end();
    return recorded.size();
  };
  EXPECT_LT(commands(QRect(0, 0, 200, 300)) * 10, commands(everything));
}
