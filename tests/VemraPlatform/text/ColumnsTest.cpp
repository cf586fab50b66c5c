#include "VemraPlatform/text/Columns.hpp"

#include <string>

#include <gmock/gmock.h>

namespace vemra::testing {
namespace {

using ::testing::ElementsAre;
using text::columns;
using text::linesOf;

TEST(Columns, LettersTakeOneAndMarksNone) {
  EXPECT_EQ(columns(""), 0);
  EXPECT_EQ(columns("Ada"), 3);
  EXPECT_EQ(columns("e\u0301"), 1) << "an accent on its own";
  EXPECT_EQ(columns("\u00E9"), 1);
  EXPECT_EQ(columns("Zalgo\u0336\u0353"), 5);
  EXPECT_EQ(columns("\u05E9\u05DC\u05D5\u05DD"), 4) << "Hebrew";
  EXPECT_EQ(columns("a\u200Bb"), 2) << "zero width space";
}

TEST(Columns, EastAsianWideCharactersTakeTwo) {
  EXPECT_EQ(columns("\u7530\u4E2D"), 4);
  EXPECT_EQ(columns("\uFF21"), 2) << "fullwidth A";
  EXPECT_EQ(columns("\uFF76"), 1) << "halfwidth katakana";
  EXPECT_EQ(columns("\uAC00"), 2) << "a Hangul syllable";
  EXPECT_EQ(columns("\u1100\u1161\u11A8"), 2) << "the same of its parts";
}

TEST(Columns, AnEmojiTakesTwoHoweverManyPartsItHas) {
  EXPECT_EQ(columns("\U0001F600"), 2);
  EXPECT_EQ(columns("\U0001F469\u200D\U0001F4BB"), 2) << "woman, joiner, computer";
  EXPECT_EQ(columns("\U0001F44D\U0001F3FD"), 2) << "with a tone of skin";
  EXPECT_EQ(columns("\u2764\uFE0F"), 2) << "a heart, as an emoji";
  EXPECT_EQ(columns("\U0001F1E9\U0001F1EA"), 2) << "a flag of two letters";
}

TEST(Columns, AJoinerInLettersIsNoEmoji) {
  EXPECT_EQ(columns("\u0915\u094D\u200D\u0937"), 2)
      << "Devanagari: a column for each of two letters";
}

TEST(Columns, LinesBreakAtBlanksAndOmitThem) {
  EXPECT_THAT(linesOf("Connected through a friend", 12),
              ElementsAre("Connected", "through a", "friend"));
  EXPECT_THAT(linesOf("exactly ten", 7), ElementsAre("exactly", "ten"));
  EXPECT_THAT(linesOf("as wide as it is", 16), ElementsAre("as wide as it is"));
}

TEST(Columns, WideBlanksAreLeftOutAtTheEndOfALineToo) {
  EXPECT_THAT(linesOf("\u7530\u3000\u4E2D", 2), ElementsAre("\u7530", "\u4E2D")) << "no room";
  EXPECT_THAT(linesOf("\u7530\u3000\u4E2D", 4), ElementsAre("\u7530", "\u4E2D")) << "room";
  EXPECT_THAT(linesOf("\u7530\u3000 \u3000\u4E2D", 8), ElementsAre("\u7530", "\u4E2D"));
  EXPECT_THAT(linesOf("\u7530\u3000\u4E2D", 6), ElementsAre("\u7530\u3000\u4E2D"));
}

TEST(Columns, AWordGoesOnANewLineBehindASingleColumn) {
  EXPECT_THAT(linesOf("\u2014abc", 3), ElementsAre("\u2014", "abc")) << "a dash, one column wide";
}

TEST(Columns, AWordThatIsWiderThanALineIsBroken) {
  EXPECT_THAT(linesOf("abcdefgh ij", 3), ElementsAre("abc", "def", "gh", "ij"));
  EXPECT_THAT(linesOf("\u7530\u4E2D\u82B1", 4), ElementsAre("\u7530\u4E2D", "\u82B1"));
  EXPECT_THAT(linesOf("\u7530\u4E2D", 1), ElementsAre("\u7530", "\u4E2D")) << "wider than a line";
}

TEST(Columns, AWideCharacterThatDoesNotFitBehindASingleColumnGoesOnTheNextLine) {
  EXPECT_THAT(linesOf("a\u2060\u4E2D", 2), ElementsAre("a\u2060", "\u4E2D"))
      << "a word joiner forbids the break, but the line has two columns only";
}

TEST(Columns, NoLineIsWiderThanItMayBe) {
  const std::string text =
      "One, two\u2014three \u7530\u4E2D\u82B1\u5B50 e\u0301e\u0301e\u0301e\u0301e\u0301 "
      "\U0001F469\u200D\U0001F4BB\U0001F600 incomprehensibilities, and so on";
  for (int most = 2; most < 40; ++most) {
    for (const std::string& line : linesOf(text, most)) {
      EXPECT_LE(columns(line), most) << line;
      EXPECT_FALSE(line.empty());
    }
  }
}

TEST(Columns, LineBreaksInTheTextEndLines) {
  EXPECT_THAT(linesOf("a\nb\r\nc\rd", 9), ElementsAre("a", "b", "c", "d"));
  EXPECT_THAT(linesOf("a\n\nb", 9), ElementsAre("a", "", "b"));
  EXPECT_THAT(linesOf("", 9), ElementsAre(""));
  EXPECT_THAT(linesOf("a\n", 9), ElementsAre("a"));
}

TEST(Columns, TerminalCommandsAreEscaped) {
  EXPECT_THAT(linesOf("\x1b[31mred\a", 80), ElementsAre(R"(\x1b[31mred\x07)"));
  EXPECT_THAT(linesOf("\u202Eevil\u2028", 80), ElementsAre(R"(\u202eevil\u2028)"));
}

TEST(Columns, IllFormedBytesAreReplaced) {
  EXPECT_THAT(linesOf("a\xFF\xC2z", 80), ElementsAre("a\uFFFD\uFFFDz"));
}

}  // namespace
}  // namespace vemra::testing
