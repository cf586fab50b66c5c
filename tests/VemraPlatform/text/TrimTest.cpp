#include "VemraPlatform/text/Trim.hpp"
#include "tests/VemraPlatform/text/Samples.hpp"

#include <algorithm>
#include <array>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

/// White_Space=yes in PropList.txt of Unicode 15.0.
constexpr std::array<char32_t, 25> blanks = {0x0009, 0x000A, 0x000B, 0x000C, 0x000D, 0x0020, 0x0085,
                                             0x00A0, 0x1680, 0x2000, 0x2001, 0x2002, 0x2003, 0x2004,
                                             0x2005, 0x2006, 0x2007, 0x2008, 0x2009, 0x200A, 0x2028,
                                             0x2029, 0x202F, 0x205F, 0x3000};

TEST(Trim, BlanksAreExactlyTheTwentyFiveScalars) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    const bool isBlank = std::find(blanks.begin(), blanks.end(), scalar) != blanks.end();
    ASSERT_EQ(text::isWhitespace(scalar), isBlank) << std::hex << static_cast<unsigned>(scalar);
    if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
    const std::string alone = utf8(scalar);
    const std::string around = alone + "a" + alone;
    ASSERT_EQ(text::trimmed(around), isBlank ? "a" : around)
        << std::hex << static_cast<unsigned>(scalar);
    ASSERT_EQ(text::isBlank(alone), isBlank) << std::hex << static_cast<unsigned>(scalar);
  }
}

TEST(Trim, RemovesBlanksAtBothEndsOnly) {
  EXPECT_EQ(text::trimmed(" \t\r\n\u3000 a \u2003 b\n \u0085\u00A0"), "a \u2003 b");
  EXPECT_EQ(text::trimmed("  a"), "a");
  EXPECT_EQ(text::trimmed("a  "), "a");
  EXPECT_EQ(text::trimmed("a"), "a");
}

TEST(Trim, TrimsATextOfBlanksToNothing) {
  EXPECT_EQ(text::trimmed(""), "");
  EXPECT_EQ(text::trimmed(" \u2028\u2029\n"), "");
  EXPECT_TRUE(text::isBlank(""));
  EXPECT_TRUE(text::isBlank("\r\n"));
  EXPECT_FALSE(text::isBlank(" . "));
}

TEST(Trim, WorksByScalarAndNotByCharacter) {
  // The blank and the mark are one character, but the blank is still removed.
  EXPECT_EQ(text::trimmed(" \u0301a"), "\u0301a");
  EXPECT_EQ(text::trimmed("\r\n\u0301"), "\u0301");
}

TEST(Trim, KeepsIllFormedBytes) {
  EXPECT_EQ(text::trimmed(" \x85 "), "\x85");  // U+0085 is blank, the byte 85 alone is nothing
  EXPECT_EQ(text::trimmed(" \xA0 "), "\xA0");
  EXPECT_EQ(text::trimmed("\xC2 "), "\xC2");
  EXPECT_EQ(text::trimmed("\xE2\x80"), "\xE2\x80");
  EXPECT_EQ(text::trimmed("\xE2\x80\xA8\xA8"), "\xA8");  // U+2028, then a stray byte
  EXPECT_EQ(text::trimmed("\xE2\xE2\x80\xA8"), "\xE2");
  EXPECT_EQ(text::trimmed("\xC0\xA0"), "\xC0\xA0");  // an overlong blank is none
  EXPECT_FALSE(text::isBlank("\xFF"));
}

TEST(Trim, GivesAPartOfItsArgument) {
  const std::string given = "  kept  ";
  EXPECT_EQ(text::trimmed(given).data(), given.data() + 2);
}

}  // namespace
}  // namespace vemra::testing
