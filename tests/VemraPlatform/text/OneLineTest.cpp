#include "VemraPlatform/text/OneLine.hpp"
#include "VemraPlatform/text/UTF8.hpp"

#include <string>

#include <gtest/gtest.h>
#include <unicode/uchar.h>

namespace vemra::testing {
namespace {

using text::onOneLine;
using text::quotedOnOneLine;

TEST(OneLine, EveryScalarThatEndsOrTurnsALineIsEscapedAndNoOther) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
    const auto category = u_charType(static_cast<UChar32>(scalar));
    const bool isEscaped = category == U_CONTROL_CHAR || category == U_LINE_SEPARATOR ||
                           category == U_PARAGRAPH_SEPARATOR ||
                           u_hasBinaryProperty(static_cast<UChar32>(scalar), UCHAR_BIDI_CONTROL);
    std::string alone;
    text::append(alone, scalar);
    const std::string shown = onOneLine(alone);
    if (isEscaped) {
      ASSERT_TRUE(text::isASCII(shown) && shown.starts_with('\\') && shown.size() >= 2)
          << std::hex << static_cast<unsigned>(scalar) << " is " << shown;
    } else {
      ASSERT_EQ(shown, alone) << std::hex << static_cast<unsigned>(scalar);
    }
  }
}

TEST(OneLine, EscapesAreShortForLineBreaksAndTabsAndElseInHexadecimal) {
  EXPECT_EQ(onOneLine(std::string("a\0b\n\r\t\v\x1f\x7f", 9)), R"(a\x00b\n\r\t\x0b\x1f\x7f)");
  EXPECT_EQ(onOneLine("\u0085\u061C\u2028\u202E"), R"(\u0085\u061c\u2028\u202e)");
  EXPECT_EQ(onOneLine("a \"b\" \\ c"), "a \"b\" \\ c") << "without quotation marks around it";
  EXPECT_EQ(onOneLine(""), "");
}

TEST(OneLine, QuotedTextsDifferFromTheirEscapes) {
  EXPECT_EQ(quotedOnOneLine(""), R"("")");
  EXPECT_EQ(quotedOnOneLine("say \"no\""), R"("say \"no\"")");
  EXPECT_EQ(quotedOnOneLine("a\nb"), R"("a\nb")");
  EXPECT_EQ(quotedOnOneLine("a\\nb"), R"("a\\nb")");
}

TEST(OneLine, IllFormedBytesStayAsTheyAre) {
  EXPECT_EQ(onOneLine("\x80\xC2 \xE2\x80\n"), "\x80\xC2 \xE2\x80\\n");
  EXPECT_EQ(quotedOnOneLine("\xE2\x80\""), "\"\xE2\x80\\\"\"");
}

}  // namespace
}  // namespace vemra::testing
