// A text that is laid out in parts has the lines of a text that is laid out at once.

#include "VemraQt/widgets/LongText.hpp"
#include "VemraQt/widgets/TextCuts.hpp"
#include "VemraQt/widgets/TextShape.hpp"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>
#include <gtest/gtest.h>

using namespace vemra::qt;

namespace {

/// Where a line begins, its top, and where a character in its middle is drawn.
struct Line {
  qsizetype start;
  int top;
  double width, middle;
  friend bool operator==(const Line&, const Line&) = default;
};

void PrintTo(const Line& line, std::ostream* out) {
  *out << "at unit " << line.start << ", y " << line.top << ", " << line.width
       << " wide, middle at " << line.middle;
}

QString repeated(const char* text, qsizetype units) {
  const QString one = QString::fromUtf8(text);
  return one.repeated(units / one.size() + 1).left(units);
}

/// The middle of a line: the next character that does not continue another one.
qsizetype middleOf(const QString& text, qsizetype start, qsizetype end) {
  qsizetype middle = start + (end - start) / 2;
  while (middle > start && (text[middle].isMark() || text[middle].isLowSurrogate())) --middle;
  return middle;
}

/// All lines by one layout of the whole text. The text has no line break of two characters.
std::vector<Line> linesAtOnce(const QString& text, int width) {
  QTextLayout layout(withLineSeparators(text), QApplication::font());
  QTextOption option;
  option.setWrapMode(hasEndlessWord(text) ? QTextOption::WrapAnywhere
                                          : QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
  layout.setTextOption(option);
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
  }
  layout.endLayout();
  double height = 0;
  std::vector<Line> lines;
  for (int i = 0; i < layout.lineCount(); ++i) {
    const QTextLine line = layout.lineAt(i);
    const int start = line.textStart();
    const qsizetype end =
        i + 1 < layout.lineCount() ? layout.lineAt(i + 1).textStart() : text.size();
    const auto middle = static_cast<int>(middleOf(text, start, end));
    lines.push_back({start, static_cast<int>(height), line.naturalTextWidth(),
                     line.cursorToX(middle) - line.naturalTextRect().left()});
    height += std::ceil(line.height());
  }
  return lines;
}

std::vector<Line> linesOf(LongText& text) {
  std::vector<Line> lines;
  const int height = text.size().height();
  for (int y = 0; y < height;) {
    const qsizetype start = text.offsetAt(y);
    const QTextLine first = text.character(start).place.line;
    const auto lineHeight = static_cast<int>(std::ceil(first.height()));
    const int nextTop = text.topOf(start) + lineHeight;
    if (nextTop <= y) {
      ADD_FAILURE() << "no line at " << y << ": unit " << start << " is at " << text.topOf(start)
                    << ": " << text.text().mid(start - 20, 40).toStdString();
      break;
    }
    y = nextTop;
    const qsizetype next = y < height ? text.offsetAt(y) : text.text().size();
    const auto middle = text.character(middleOf(text.text(), start, next));
    const QTextLine line = middle.place.line;
    lines.push_back({start, text.topOf(start), line.naturalTextWidth(),
                     middle.edges.one - line.naturalTextRect().left()});
  }
  return lines;
}

void settle(LongText& text) {
  ASSERT_TRUE(text.settle(QDeadlineTimer(QDeadlineTimer::Forever)));
  text.adopt();
}

QString mixedText(unsigned seed) {
  static const char* const pieces[] = {
      "design ",
      "lead ",
      "a-hyphened-word ",
      "\n",
      "\n\n",
      "שלום ",
      "(עולם 12.) ",
      "مرحبا ",
      "١٢٣, 45.6 ",
      "日本語の文章",
      "☺ ",
      "e\u0301\u0302 ",
      "\t",
      "Ünïcödé ",
      "...",
      "extraordinarily-long-word-without-any-end-that-is-wider-than-the-page "};
  std::mt19937 random(seed);
  QString text;
  while (text.size() < 24'000) text += QString::fromUtf8(pieces[random() % std::size(pieces)]);
  return text;
}

}  // namespace

TEST(LongText, HasTheLinesOfOneLayoutWhenItIsSettled) {
  const QString texts[] = {repeated("design lead ", 30'000),
                           repeated("first line\nsecond\n", 30'000), repeated("x", 21'000),
                           repeated("😀", 24'000), repeated("שלום עולם, ", 30'000)};
  for (const QString& whole : texts) {
    for (const int width : {40, 333}) {
      LongText text(whole, QApplication::font(), width);
      EXPECT_FALSE(text.isSettled());
      settle(text);
      EXPECT_TRUE(text.isSettled());
      const std::vector<Line> wanted = linesAtOnce(whole, width), got = linesOf(text);
      ASSERT_EQ(got.size(), wanted.size()) << whole.left(20).toStdString() << " " << width;
      for (std::size_t i = 0; i < got.size(); ++i) {
        ASSERT_EQ(got[i], wanted[i]) << whole.left(20).toStdString() << " " << width << " " << i;
      }
      EXPECT_EQ(text.size(), TextShape(whole, QApplication::font(), width).size());
    }
  }
}

TEST(LongText, HasTheLinesOfOneLayoutInAnyMixtureOfScripts) {
  for (unsigned seed = 0; seed < 12; ++seed) {
    const QString whole = mixedText(seed);
    LongText text(whole, QApplication::font(), 280);
    settle(text);
    const std::vector<Line> wanted = linesAtOnce(whole, 280), got = linesOf(text);
    ASSERT_EQ(got.size(), wanted.size()) << seed;
    for (std::size_t i = 0; i < got.size(); ++i) {
      ASSERT_EQ(got[i], wanted[i]) << "seed " << seed << ", line " << i << ": "
                                   << whole.mid(wanted[i].start - 30, 60).toStdString();
    }
  }
}

// Away from the beginning, only the lines in view are laid out.

namespace {

constexpr int viewHeight = 700;
/// What a view of that height costs at most: two screens of glyphs on each side, and one part more.
constexpr std::int64_t mostForAView = 40'000;

/// Checks that lines without gaps cover the view.
void expectCovered(LongText& text, int top) {
  const auto lines = text.linesBetween(top - 40, top + viewHeight);
  ASSERT_FALSE(lines.empty());
  int end = lines.front().top + static_cast<int>(lines.front().line.y());
  EXPECT_LE(end, top);
  for (const LongText::PlacedLine& each : lines) {
    EXPECT_EQ(each.top + static_cast<int>(each.line.y()), end) << "a gap, or an overlap";
    end = each.top + static_cast<int>(each.line.y() + std::ceil(each.line.height()));
  }
  EXPECT_GE(end, std::min(top + viewHeight, text.size().height()));
}

}  // namespace

TEST(LongText, LaysOutNoMoreThanTheViewWhereverItIs) {
  LongText text(repeated("design lead ", 1'000'000), QApplication::font(), 460);
  std::mt19937 random(3);
  for (int jump = 0; jump < 60; ++jump) {
    const int end = text.size().height() - viewHeight;
    const int top = jump % 10 == 0 ? end : static_cast<int>(random() % static_cast<unsigned>(end));
    const std::int64_t before = TextLines::unitsLaidOut();
    text.layOut(top, top + viewHeight);
    const int now = std::min(top, text.size().height() - viewHeight);
    while (text.layOut(now, now + viewHeight)) {
    }
    EXPECT_LT(TextLines::unitsLaidOut() - before, mostForAView) << jump;
    expectCovered(text, now);
  }
}

TEST(LongText, TheEstimatedHeightIsNearTheRealOne) {
  LongText text(repeated("design lead ", 200'000), QApplication::font(), 460);
  const int estimated = text.size().height();
  settle(text);
  EXPECT_NEAR(text.size().height(), estimated, estimated / 50);
}

TEST(LongText, SettlingKeepsNoGlyphsAndEndsWithTheSameLines) {
  const QString whole = repeated("design lead ", 60'000);
  LongText text(whole, QApplication::font(), 200);
  text.layOut(5'000, 5'700);
  text.layOut(text.size().height() - viewHeight, text.size().height());
  const int before = text.size().height();
  while (!text.settle(QDeadlineTimer(0))) {
    EXPECT_EQ(text.size().height(), before) << "nothing moves before adopt";
    if (text.adopt()) break;
    text.settle(QDeadlineTimer(1));
  }
  settle(text);
  text.adopt();
  const std::vector<Line> wanted = linesAtOnce(whole, 200), got = linesOf(text);
  EXPECT_EQ(got, wanted);
}

TEST(LongText, AMillionMarksOfOneLetterAreSeveralLines) {
  QString marks(1'000'000, QChar(0x301));
  marks.prepend(u'e');
  const std::int64_t before = TextLines::unitsLaidOut();
  LongText text(marks, QApplication::font(), 460);
  text.layOut(0, viewHeight);
  EXPECT_LT(TextLines::unitsLaidOut() - before, mostForAView);
  EXPECT_EQ(text.offsetAt(text.lineHeight()), mostMarks + 1);
  const int end = text.size().height();
  EXPECT_GT(end, 1'000'000 / mostMarks * text.lineHeight() / 2);
  text.layOut(end - viewHeight, end);
  EXPECT_LT(TextLines::unitsLaidOut() - before, 3 * mostForAView);
}

TEST(LongText, ACharacterThatIsNotInViewIsLaidOutOnRequest) {
  LongText text(repeated("design lead ", 400'000), QApplication::font(), 460);
  const std::int64_t before = TextLines::unitsLaidOut();
  const auto middle = text.character(200'004);
  EXPECT_LT(TextLines::unitsLaidOut() - before, 2 * unitsAtOnce);
  const int y = middle.place.top + static_cast<int>(middle.place.line.y());
  EXPECT_NEAR(y, text.size().height() / 2, text.size().height() / 50);
  EXPECT_GT(middle.edges.other, middle.edges.one);
  text.character(200'005);
  EXPECT_LT(TextLines::unitsLaidOut() - before, 2 * unitsAtOnce) << "the next one is there";
  settle(text);
  const auto settled = text.character(200'004);
  EXPECT_NEAR(settled.place.top + settled.place.line.y(), y, text.size().height() / 50);
}

TEST(LongText, LineBreaksOfTwoCharactersCountAsTwo) {
  const QString whole = repeated("one\r\ntwo\r\n", 30'000);
  LongText text(whole, QApplication::font(), 460);
  settle(text);
  EXPECT_EQ(text.size(), TextShape(whole, QApplication::font(), 460).size());
  for (const qsizetype line : {0, 7, 1'000, 5'999}) {
    EXPECT_EQ(text.offsetAt(static_cast<int>(line) * text.lineHeight()), line * 5);
    EXPECT_EQ(text.topOf(line * 5 + 2), static_cast<int>(line) * text.lineHeight());
  }
}

TEST(LongText, ADrawnPartLooksAsInOneLayout) {
  const QString whole = repeated("design lead \u05e9\u05dc\u05d5\u05dd ", 24'000);
  const TextShape parts = TextShape::ofAnyLength(whole, QApplication::font(), 300);
  ASSERT_TRUE(parts.parts());
  settle(*parts.parts());
  const TextShape atOnce(whole, QApplication::font(), 300);
  ASSERT_EQ(parts.size(), atOnce.size());
  const auto picture = [&](const TextShape& shape, int from) {
    QImage image(300, 400, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const QRect place(0, -from, 300, shape.size().height());
    shape.layOut(place, image.rect());
    shape.draw(painter, place, image.rect(), Qt::LeftToRight);
    shape.underline(painter, place, image.rect(), Qt::LeftToRight);
    return image;
  };
  const int end = atOnce.size().height();
  for (const int from : {0, 1'000, end / 2, end - 400}) {
    EXPECT_EQ(picture(parts, from), picture(atOnce, from)) << from;
  }
  for (const int offset : {0, 13, 5'000, 20'001}) {
    const QRect place(10, 20, 300, end);
    EXPECT_EQ(parts.characterRect(whole, offset, place, Qt::LeftToRight),
              atOnce.characterRect(whole, offset, place, Qt::LeftToRight))
        << offset;
  }
}
