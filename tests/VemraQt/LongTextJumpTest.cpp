// Lines that are laid out away from the beginning of a very long text, after a jump.

#include "VemraQt/widgets/LongText.hpp"

#include <utility>

#include <QApplication>
#include <gtest/gtest.h>

using namespace vemra::qt;

namespace {

constexpr int shownHeight = 700;

/// Lays out a view as a page does: the character at its top stays there. Returns its new top.
int followedView(LongText& text, int top) {
  const auto mostRounds = 12;
  for (int round = 0; round < mostRounds; ++round) {
    const qsizetype offset = text.offsetAt(top);
    const int within = top - text.topOf(offset);
    if (!text.layOut(top, top + shownHeight)) return top;
    top = std::min(text.topOf(offset) + within, text.size().height() - shownHeight);
  }
  ADD_FAILURE() << "the view never comes to rest at " << top;
  return top;
}

}  // namespace

TEST(LongTextJump, EndsWhereParagraphsFollowShortLines) {
  const QString whole = QStringLiteral("a\n").repeated(12'000) +
                        (QStringLiteral("design lead ").repeated(250) + u'\n').repeated(60);
  for (int sixtieth = 1; sixtieth < 60; ++sixtieth) {
    LongText text(whole, QApplication::font(), 460);
    const int top = followedView(text, text.size().height() / 60 * sixtieth);
    const auto lines = text.linesBetween(top, top + shownHeight);
    EXPECT_GT(static_cast<int>(lines.size()), shownHeight / text.lineHeight() - 2) << sixtieth;
  }
}

TEST(LongTextJump, StepsUpwardsFindEachLineOnce) {
  for (const char* const paragraph : {"a line\n", "a line\f", "a line\r\n", "a line\u2029"}) {
    const QString one = QString::fromUtf8(paragraph);
    const QString whole = one.repeated(60'000);
    LongText text(whole, QApplication::font(), 460);
    int top = followedView(text, text.size().height() / 2);
    for (int step = 0; step < 400; ++step) {
      top = followedView(text, top - 53);
      for (int y = top; y + text.lineHeight() < top + shownHeight; y += text.lineHeight()) {
        ASSERT_EQ(text.offsetAt(y) + one.size(), text.offsetAt(y + text.lineHeight()))
            << "step " << step << ", after " << text.offsetAt(y) % one.size();
      }
    }
  }
}
