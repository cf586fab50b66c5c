#include "VemraPlatform/text/UTF8.hpp"
#include "tests/VemraPlatform/text/Samples.hpp"

#include <array>

#include <gtest/gtest.h>
#include <unicode/utf8.h>

namespace vemra::testing {
namespace {

/// The same with ICU, for comparison.
bool isWellFormedForICU(std::string_view text) {
  std::size_t index = 0;
  while (index < text.size()) {
    UChar32 scalar = 0;
    U8_NEXT(text.data(), index, text.size(), scalar);
    if (scalar < 0) return false;
  }
  return true;
}

TEST(UTF8, EveryScalarIsReadFromBothEnds) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    const std::string text = utf8(scalar);
    const bool isSurrogate = scalar >= 0xD800 && scalar <= 0xDFFF;
    ASSERT_EQ(text::isWellFormed(text), !isSurrogate) << inHex(text);
    if (isSurrogate) continue;
    std::string appended = "a";
    text::append(appended, scalar);
    ASSERT_EQ(appended, "a" + text) << inHex(text);
    const text::Step first = text::firstStep(text + "\x80z");
    const text::Step last = text::lastStep("\xE2" + text);
    ASSERT_EQ(first.scalar, scalar) << inHex(text);
    ASSERT_EQ(first.length, text.size()) << inHex(text);
    ASSERT_EQ(last.scalar, scalar) << inHex(text);
    ASSERT_EQ(last.length, text.size()) << inHex(text);
  }
}

TEST(UTF8, EveryTextOfUpToThreeBytesIsCheckedCorrectly) {
  std::array<char, 3> bytes{};
  for (unsigned int value = 0; value < 0x1000000; ++value) {
    bytes = {static_cast<char>(value & 255), static_cast<char>((value >> 8) & 255),
             static_cast<char>(value >> 16)};
    const std::string_view text(bytes.data(), value < 0x100 ? 1 : value < 0x10000 ? 2 : 3);
    if (text::isWellFormed(text) != isWellFormedForICU(text)) FAIL() << inHex(text);
  }
}

TEST(UTF8, FourBytesAtEveryLimitAreCheckedCorrectly) {
  const std::string limits =
      "\x41\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE\xEF\xF0\xF1\xF3\xF4\xF5"
      "\xFF";
  std::size_t wellFormed = 0;
  for (const char first : limits) {
    for (const char second : limits) {
      for (const char third : limits) {
        for (const char fourth : limits) {
          const std::string text{first, second, third, fourth};
          ASSERT_EQ(text::isWellFormed(text), isWellFormedForICU(text)) << inHex(text);
          if (text::isWellFormed(text)) ++wellFormed;
        }
      }
    }
  }
  EXPECT_GT(wellFormed, 100U);
}

TEST(UTF8, AnIllFormedByteIsOneStep) {
  for (const std::string_view text : {"\x80", "\xC3", "\xE2\x82", "\xF0\x9F\x98", "\xFFz"}) {
    EXPECT_EQ(text::firstStep(text).scalar, std::nullopt) << inHex(text);
    EXPECT_EQ(text::firstStep(text).length, 1U) << inHex(text);
  }
  for (const std::string_view text : {"\x80", "\xC3", "\xE2\x82", "\xC3\xA9\xA9", "z\xFF"}) {
    EXPECT_EQ(text::lastStep(text).scalar, std::nullopt) << inHex(text);
    EXPECT_EQ(text::lastStep(text).length, 1U) << inHex(text);
  }
}

TEST(UTF8, ThereIsNoStepInEmptyText) {
  EXPECT_EQ(text::firstStep("").length, 0U);
  EXPECT_EQ(text::lastStep("").length, 0U);
  EXPECT_TRUE(text::isWellFormed(""));
  EXPECT_TRUE(text::isASCII(""));
}

TEST(UTF8, AByteBeyondAsciiIsFoundAtEveryPlace) {
  for (std::size_t size = 1; size < 40; ++size) {
    std::string text(size, '\x7F');
    EXPECT_TRUE(text::isASCII(text));
    for (std::size_t place = 0; place < size; ++place) {
      text[place] = '\x80';
      EXPECT_FALSE(text::isASCII(text)) << place << " of " << size;
      text[place] = '\x7F';
    }
  }
}

}  // namespace
}  // namespace vemra::testing
