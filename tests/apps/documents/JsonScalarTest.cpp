#include "tests/apps/documents/JsonReading.hpp"

#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

std::int64_t integer(std::string_view text) {
  JsonReader reader(text, "t");
  const std::int64_t value = reader.integer();
  reader.finish();
  return value;
}

std::string integerError(std::string_view text) {
  return errorOf(text, [](JsonReader& reader) { reader.integer(); });
}

TEST(JsonReaderStringTest, ResolvesEveryEscape) {
  EXPECT_EQ(string(R"("\"\\\/\b\f\n\r\t")"), "\"\\/\b\f\n\r\t");
  EXPECT_EQ(string(R"("\u0041\u00e9\u20AC\uD83D\ude00")"), "Aé€😀");
  EXPECT_EQ(string(R"("\uFFFF\uD7FF\uE000\udbff\udfff")"), "\uFFFF\uD7FF\uE000\U0010FFFF");
  EXPECT_EQ(string(R"("a\u0000b")"), std::string("a\0b", 3));
  EXPECT_EQ(string(R"("plain \n mixed é \t end")"), "plain \n mixed é \t end");
}

TEST(JsonReaderStringTest, KeepsTheBytesOfCanonicallyEqualTexts) {
  EXPECT_EQ(string("\"\u00E9\""), "\u00E9");
  EXPECT_EQ(string("\"e\u0301\""), "e\u0301");
}

TEST(JsonReaderStringTest, AcceptsDeleteAndLineSeparatorsUnescaped) {
  EXPECT_EQ(string("\"\x7F\u2028\u0085\""), "\x7F\u2028\u0085");
}

TEST(JsonReaderStringTest, RefusesHalfASurrogatePair) {
  const std::string expected =
      "t: line 1, column 3: expected both halves of a surrogate pair; found ";
  EXPECT_EQ(stringError(R"("x\uD800")"), expected + R"(\uD800)");
  EXPECT_EQ(stringError(R"("x\udc00")"), expected + R"(\udc00)");
  EXPECT_EQ(stringError(R"("x\uD800y")"), expected + R"(\uD800)");
  EXPECT_EQ(stringError(R"("x\uD800\n")"), expected + R"(\uD800)");
  EXPECT_EQ(stringError(R"("x\uD800\u0041")"), expected + R"(\uD800)");
  EXPECT_EQ(stringError(R"("x\uD800\uD800")"), expected + R"(\uD800)");
  EXPECT_EQ(stringError(R"("x\uDC00\uD800")"), expected + R"(\uDC00)");
  EXPECT_EQ(stringError(R"("x\uDC00\uDC00")"), expected + R"(\uDC00)");
  EXPECT_EQ(stringError(R"("x\uDFFF")"), expected + R"(\uDFFF)") << "the last of the second halves";
  EXPECT_EQ(stringError(R"("x\uDBFF\uE000")"), expected + R"(\uDBFF)") << "the first behind them";
}

TEST(JsonReaderStringTest, RefusesOtherEscapes) {
  EXPECT_EQ(stringError(R"("\x41")"),
            R"(t: line 1, column 3: expected one of the escapes \" \\ \/ \b \f \n \r \t \u; )"
            R"(found "x41")");
  EXPECT_EQ(stringError(R"("\u12G4")"),
            "t: line 1, column 6: expected four hexadecimal digits after \\u; found \"G4\"");
  EXPECT_EQ(stringError(R"("\u12")"),
            "t: line 1, column 6: expected four hexadecimal digits after \\u; found \"\\\"\"");
  EXPECT_EQ(stringError("\"\\"),
            "t: line 1, column 3: expected one of the escapes \\\" \\\\ \\/ \\b \\f \\n \\r \\t "
            "\\u; found the end of the file");
}

TEST(JsonReaderStringTest, RefusesControlCharacters) {
  for (char c = 0; c < 0x20; ++c) {
    const std::string error = stringError(std::string("\"a") + c + "\"");
    EXPECT_NE(error.find("column 3: expected a control character to be written as an escape"),
              std::string::npos)
        << int{c} << ": " << error;
  }
}

TEST(JsonReaderStringTest, RefusesIllFormedUtf8) {
  const char* illFormed[] = {
      "\x80",              // a continuation byte alone
      "\xC0\xAF",          // overlong
      "\xC3",              // cut short
      "\xE0\x9F\xBF",      // overlong
      "\xED\xA0\x80",      // a surrogate
      "\xF0\x8F\xBF\xBF",  // overlong
      "\xF4\x90\x80\x80",  // above U+10FFFF
      "\xF5\x80\x80\x80",  // no lead byte
      "\xFE",
      "\xFF",
  };
  for (const char* bytes : illFormed) {
    const std::string error = stringError(std::string("\"é") + bytes + "\"");
    EXPECT_TRUE(error.starts_with("t: line 1, column 3: expected UTF-8; found the byte 0x"))
        << error;
  }
}

TEST(JsonReaderStringTest, RefusesAStringWithoutItsEnd) {
  EXPECT_EQ(stringError("\"ab"),
            "t: line 1, column 4: expected the end of the string; found the end of the file");
}

TEST(JsonReaderIntegerTest, ReadsTheWholeRange) {
  EXPECT_EQ(integer("0"), 0);
  EXPECT_EQ(integer("-0"), 0);
  EXPECT_EQ(integer(" \t\r\n-17 \n"), -17);
  EXPECT_EQ(integer("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(integer("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
}

TEST(JsonReaderIntegerTest, RefusesFractionsExponentsAndNumbersOutOfRange) {
  const std::string expected =
      "t: expected an integer from -9223372036854775808 to 9223372036854775807, without fraction "
      "or exponent; found ";
  for (const char* token :
       {"1.0", "1e2", "1E2", "0e0", "-0.0", "1e-1", "1.5e3", "9223372036854775808",
        "-9223372036854775809", "18446744073709551616", "99999999999999999999999999"}) {
    EXPECT_EQ(integerError(token), expected + token);
  }
}

TEST(JsonReaderIntegerTest, CutsAHugeNumberInTheMessage) {
  const std::string error = integerError(std::string(1000, '9'));
  const std::string sixtyDigits(60, '9');
  EXPECT_TRUE(error.ends_with(sixtyDigits + "…")) << error;
  EXPECT_FALSE(error.ends_with('9' + sixtyDigits + "…")) << error;
}

TEST(JsonReaderIntegerTest, RefusesTextThatIsNoNumber) {
  EXPECT_EQ(integerError("01"),
            "t: line 1, column 2: expected a number without leading zeros; found \"1\"");
  EXPECT_EQ(integerError("-01"),
            "t: line 1, column 3: expected a number without leading zeros; found \"1\"");
  EXPECT_EQ(integerError("-"), "t: line 1, column 2: expected a digit; found the end of the file");
  EXPECT_EQ(integerError("1."), "t: line 1, column 3: expected a digit; found the end of the file");
  EXPECT_EQ(integerError("1.e1"), "t: line 1, column 3: expected a digit; found \"e1\"");
  EXPECT_EQ(integerError("1e+"),
            "t: line 1, column 4: expected a digit; found the end of the file");
  for (const char* word : {"+1", ".5", "NaN", "Infinity", "٣", "０"}) {
    EXPECT_TRUE(integerError(word).starts_with("t: line 1, column 1: expected an integer"))
        << integerError(word);
  }
  EXPECT_EQ(integerError("-Infinity"), "t: line 1, column 2: expected a digit; found \"Infinity\"");
  EXPECT_EQ(integerError("0x10"),
            "t: line 1, column 2: expected the end of the document; found \"x10\"");
}

}  // namespace
}  // namespace vemra::documents
