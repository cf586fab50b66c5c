#include "apps/documents/JsonReader.hpp"

#include <limits>
#include <map>

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

/// Runs `read` on a reader of the whole of `text`; the error's message, or "".
template <class Read>
std::string errorOf(std::string_view text, Read read) {
  try {
    JsonReader reader(text, "t");
    read(reader);
    reader.finish();
  } catch (const DocumentError& error) {
    return error.what();
  }
  return "";
}

std::string string(std::string_view text) {
  JsonReader reader(text, "t");
  std::string value = reader.string();
  reader.finish();
  return value;
}

std::int64_t integer(std::string_view text) {
  JsonReader reader(text, "t");
  const std::int64_t value = reader.integer();
  reader.finish();
  return value;
}

std::string stringError(std::string_view text) {
  return errorOf(text, [](JsonReader& reader) { reader.string(); });
}

std::string integerError(std::string_view text) {
  return errorOf(text, [](JsonReader& reader) { reader.integer(); });
}

TEST(JsonReaderStringTest, resolvesEveryEscape) {
  EXPECT_EQ(string(R"("\"\\\/\b\f\n\r\t")"), "\"\\/\b\f\n\r\t");
  EXPECT_EQ(string(R"("\u0041\u00e9\u20AC\uD83D\ude00")"), "Aé€😀");
  EXPECT_EQ(string(R"("\uFFFF\uD7FF\uE000\udbff\udfff")"), "\uFFFF\uD7FF\uE000\U0010FFFF");
  EXPECT_EQ(string(R"("a\u0000b")"), std::string("a\0b", 3));
  EXPECT_EQ(string(R"("plain \n mixed é \t end")"), "plain \n mixed é \t end");
}

TEST(JsonReaderStringTest, keepsTheBytesOfCanonicallyEqualTexts) {
  EXPECT_EQ(string("\"\u00E9\""), "\u00E9");
  EXPECT_EQ(string("\"e\u0301\""), "e\u0301");
}

TEST(JsonReaderStringTest, takesDeleteAndLineSeparatorsAsTheyAre) {
  EXPECT_EQ(string("\"\x7F\u2028\u0085\""), "\x7F\u2028\u0085");
}

TEST(JsonReaderStringTest, refusesHalfASurrogatePair) {
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
}

TEST(JsonReaderStringTest, refusesOtherEscapes) {
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

TEST(JsonReaderStringTest, refusesControlCharacters) {
  for (char c = 0; c < 0x20; ++c) {
    const std::string error = stringError(std::string("\"a") + c + "\"");
    EXPECT_NE(error.find("column 3: expected a control character to be written as an escape"),
              std::string::npos)
        << int{c} << ": " << error;
  }
}

TEST(JsonReaderStringTest, refusesIllFormedUtf8) {
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

TEST(JsonReaderStringTest, refusesAStringWithoutItsEnd) {
  EXPECT_EQ(stringError("\"ab"),
            "t: line 1, column 4: expected the end of the string; found the end of the file");
}

TEST(JsonReaderIntegerTest, readsTheWholeRange) {
  EXPECT_EQ(integer("0"), 0);
  EXPECT_EQ(integer("-0"), 0);
  EXPECT_EQ(integer(" \t\r\n-17 \n"), -17);
  EXPECT_EQ(integer("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(integer("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
}

TEST(JsonReaderIntegerTest, refusesFractionsExponentsAndWhatIsOutOfRange) {
  const std::string expected =
      "t: expected an integer from -9223372036854775808 to 9223372036854775807, without fraction "
      "or exponent; found ";
  for (const char* token :
       {"1.0", "1e2", "1E2", "0e0", "-0.0", "1e-1", "1.5e3", "9223372036854775808",
        "-9223372036854775809", "18446744073709551616", "99999999999999999999999999"}) {
    EXPECT_EQ(integerError(token), expected + token);
  }
}

TEST(JsonReaderIntegerTest, cutsAHugeNumberInTheMessage) {
  const std::string error = integerError(std::string(1000, '9'));
  const std::string sixtyDigits(60, '9');
  EXPECT_TRUE(error.ends_with(sixtyDigits + "…")) << error;
  EXPECT_FALSE(error.ends_with('9' + sixtyDigits + "…")) << error;
}

TEST(JsonReaderIntegerTest, refusesWhatIsNoNumber) {
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

TEST(JsonReaderTest, saysWhatAValueOfAnotherKindIs) {
  EXPECT_EQ(stringError("null"), "t: expected a string; found null");
  EXPECT_EQ(stringError("true"), "t: expected a string; found true");
  EXPECT_EQ(stringError("false"), "t: expected a string; found false");
  EXPECT_EQ(stringError("-1.50e3"), "t: expected a string; found -1.50e3");
  EXPECT_EQ(stringError("[[["), "t: expected a string; found an array");
  EXPECT_EQ(stringError("{{{"), "t: expected a string; found an object");
  EXPECT_EQ(errorOf("\"a\\\"b\"", [](JsonReader& r) { r.array([] {}); }),
            "t: expected an array; found \"a\\\"b\"");
  EXPECT_EQ(errorOf("[]", [](JsonReader& r) { r.object({}); }),
            "t: expected an object; found an array");
  EXPECT_EQ(errorOf("7", [](JsonReader& r) { r.stringOrNull(); }),
            "t: expected a string or null; found 7");
}

TEST(JsonReaderTest, countsLinesAndCharacters) {
  EXPECT_EQ(stringError("\n \n  é"), "t: line 3, column 3: expected a string; found \"é\"");
  EXPECT_EQ(stringError("\r\n\"ééé\" x"),
            "t: line 2, column 7: expected the end of the document; found \"x\"");
  EXPECT_EQ(stringError(""), "t: line 1, column 1: expected a string; found the end of the file");
  EXPECT_EQ(stringError("nul"), "t: line 1, column 1: expected null; found \"nul\"");
  EXPECT_EQ(stringError(std::string_view("\0", 1)),
            "t: line 1, column 1: expected a string; found \"\\u0000\"");
}

TEST(JsonReaderTest, refusesAByteOrderMark) {
  EXPECT_EQ(stringError("\xEF\xBB\xBF\"a\""),
            "t: line 1, column 1: expected UTF-8 without a byte-order mark; found U+FEFF");
  EXPECT_EQ(stringError("\xFF\xFE\"\0a\0"),
            "t: line 1, column 1: expected UTF-8; found the byte 0xFF");
  EXPECT_EQ(string("\"\xEF\xBB\xBF\""), "\uFEFF") << "inside a string it is a character";
}

TEST(JsonReaderTest, takesOnlyTheFourBlanksBetweenTokens) {
  EXPECT_EQ(string(" \t\n\r\"a\" \t\n\r"), "a");
  for (const char* blank : {"\v", "\f", "\u00A0", "\u2028", "//x\n", "/*x*/"}) {
    EXPECT_NE(stringError(std::string(blank) + "\"a\""), "") << blank;
    EXPECT_NE(stringError("\"a\"" + std::string(blank)), "") << blank;
  }
}

TEST(JsonReaderTest, readsArraysAndObjects) {
  std::vector<std::int64_t> numbers;
  std::map<std::string, std::optional<std::string>> entries;
  JsonReader reader(R"( { "numbers" : [ 3 , -4 ] , "entries" : { "" : null , "a/b" : "x" } } )",
                    "t");
  reader.object({
      {"entries", Presence::required,
       [&] {
         reader.dictionary([&](const std::string& key) { entries[key] = reader.stringOrNull(); });
       }},
      {"numbers", Presence::required,
       [&] { reader.array([&] { numbers.push_back(reader.integer()); }); }},
      {"more", Presence::optional, [&] { FAIL() << "there is no such key"; }},
  });
  reader.finish();
  EXPECT_EQ(numbers, (std::vector<std::int64_t>{3, -4}));
  EXPECT_EQ(entries,
            (std::map<std::string, std::optional<std::string>>{{"", std::nullopt}, {"a/b", "x"}}));
}

TEST(JsonReaderTest, comparesKeysAfterTheirEscapes) {
  std::string value;
  JsonReader reader(R"({"\u0069d": "x"})", "t");
  reader.object({{"id", Presence::required, [&] { value = reader.string(); }}});
  EXPECT_EQ(value, "x");
}

std::string objectError(std::string_view text) {
  return errorOf(text, [](JsonReader& reader) {
    reader.object({
        {"id", Presence::required, [&] { reader.string(); }},
        {"list", Presence::optional, [&] { reader.array([&] { reader.integer(); }); }},
    });
  });
}

TEST(JsonReaderTest, pointsIntoObjectsAndArrays) {
  EXPECT_EQ(objectError(R"({"id": 1})"), "t: /id: expected a string; found 1");
  EXPECT_TRUE(
      objectError(R"({"id": "", "list": [1, 2, "x"]})").starts_with("t: /list/2: expected"));
  EXPECT_EQ(objectError(R"({})"), "t: expected the key \"id\"; found none");
  EXPECT_EQ(objectError(R"({"id": "", "Id": ""})"),
            "t: /Id: expected one of the keys id, list; found \"Id\"");
  EXPECT_EQ(objectError(R"({"a/b~c": 1})"),
            "t: /a~1b~0c: expected one of the keys id, list; found \"a/b~c\"");
  EXPECT_EQ(objectError(R"({"id": "", "\u0069d": ""})"),
            "t: /id: expected each key once; found \"id\" again");
}

TEST(JsonReaderTest, refusesBrokenPunctuation) {
  EXPECT_EQ(objectError(R"({"id" "x"})"), "t: line 1, column 7: expected \":\"; found \"\\\"\"");
  EXPECT_EQ(objectError(R"({"id": "x" "list": []})"),
            "t: line 1, column 12: expected \",\" or \"}\"; found \"\\\"\"");
  EXPECT_EQ(objectError(R"({"id": "x",})"), "t: line 1, column 12: expected a key; found \"}\"");
  EXPECT_EQ(objectError(R"({,})"), "t: line 1, column 2: expected a key; found \",\"");
  EXPECT_EQ(objectError(R"({1: 2})"), "t: line 1, column 2: expected a key; found \"1\"");
  EXPECT_EQ(objectError(R"({id: "x"})"), "t: line 1, column 2: expected a key; found \"id\"");
  EXPECT_EQ(objectError(R"({"id": "x")"),
            "t: line 1, column 11: expected \",\" or \"}\"; found the end of the file");
  EXPECT_EQ(objectError(R"({"list": [1 2]})"),
            "t: /list: line 1, column 13: expected \",\" or \"]\"; found \"2\"");
  EXPECT_TRUE(objectError(R"({"list": [1,]})").starts_with("t: /list/1: line 1, column 13: "));
  EXPECT_EQ(objectError(R"({"id": ")"
                        "\xFF\"}"),
            "t: /id: line 1, column 9: expected UTF-8; found the byte 0xFF");
}

TEST(JsonReaderTest, leavesAKeyTwiceInADictionaryToTheCaller) {
  std::vector<std::string> keys;
  JsonReader reader(R"({"a": "1", "b": "2", "a": "3"})", "t");
  reader.dictionary([&](const std::string& key) {
    keys.push_back(key);
    reader.string();
  });
  reader.finish();
  EXPECT_EQ(keys, (std::vector<std::string>{"a", "b", "a"}));
}

TEST(JsonReaderTest, listsTheNamesThatMayStand) {
  const std::vector<std::string_view> names{"one", "two"};
  const auto error = [&](std::string_view text) {
    return errorOf(text, [&](JsonReader& reader) { reader.name(names); });
  };
  EXPECT_EQ(error("\"two\""), "");
  EXPECT_EQ(error("\"Two\""), "t: expected one of one, two; found \"Two\"");
  EXPECT_EQ(error("\"\""), "t: expected one of one, two; found \"\"");
  EXPECT_EQ(error("2"), "t: expected one of one, two; found 2");
  JsonReader reader("\"two\"", "t");
  EXPECT_EQ(reader.name(names), 1U);
}

TEST(JsonReaderTest, looksAtTheNextKindWithoutReadingIt) {
  using enum JsonKind;
  const std::pair<const char*, JsonKind> cases[] = {
      {" null", null},  {"true", boolean}, {"false", boolean}, {"-1", number},
      {"\"\"", string}, {"[", array},      {"{", object}};
  for (const auto& [text, kind] : cases) {
    JsonReader reader(text, "t");
    EXPECT_EQ(reader.next(), kind) << text;
    EXPECT_EQ(reader.next(), kind) << text;
  }
}

}  // namespace
}  // namespace vemra::documents
