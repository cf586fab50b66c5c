#include "tests/apps/documents/JsonReading.hpp"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

TEST(JsonReaderTest, TellsKeysApartAtEveryByte) {
  for (std::size_t length = 1; length <= 20; ++length) {
    const std::string key = std::string("abcdefghijklmnopqrst").substr(0, length);
    for (std::size_t place = 0; place < length; ++place) {
      std::string other = key;
      other[place] = 'X';
      const std::string text = "{\"" + other + "\": 7, \"" + key + "\": 8}";
      JsonReader reader(text, "t");
      std::int64_t first = 0;
      std::int64_t second = 0;
      reader.object({
          {key, Presence::required, [&] { second = reader.integer(); }},
          {other, Presence::required, [&] { first = reader.integer(); }},
      });
      EXPECT_EQ(first, 7) << text;
      EXPECT_EQ(second, 8) << text;
    }
  }
}

TEST(JsonReaderTest, NamesTheKindOfAnUnexpectedValue) {
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

TEST(JsonReaderTest, CountsLinesAndCharacters) {
  EXPECT_EQ(stringError("\n \n  é"), "t: line 3, column 3: expected a string; found \"é\"");
  EXPECT_EQ(stringError("\n\n\n é"), "t: line 4, column 2: expected a string; found \"é\"")
      << "empty lines count";
  EXPECT_EQ(stringError("\r\n\"ééé\" x"),
            "t: line 2, column 7: expected the end of the document; found \"x\"");
  EXPECT_EQ(stringError(""), "t: line 1, column 1: expected a string; found the end of the file");
  EXPECT_EQ(stringError("nul"), "t: line 1, column 1: expected null; found \"nul\"");
  EXPECT_EQ(stringError(std::string_view("\0", 1)),
            "t: line 1, column 1: expected a string; found \"\\x00\"");
}

TEST(JsonReaderTest, NamesTheExpectedValueWhereNoValueBegins) {
  EXPECT_EQ(errorOf(" ]", [](JsonReader& reader) { reader.failNext("a colour"); }),
            "t: line 1, column 2: expected a colour; found \"]\"");
}

TEST(JsonReaderTest, FindsAKeyInAnyOrderAndWithEscapes) {
  const auto read = [](std::string_view text) {
    std::string values;
    const std::string error = errorOf(text, [&](JsonReader& reader) {
      reader.object({
          {"name", Presence::required, [&] { values += "name " + reader.string() + ' '; }},
          {"names", Presence::optional, [&] { values += "names " + reader.string() + ' '; }},
      });
    });
    return values + error;
  };
  EXPECT_EQ(read(R"({"name": "a", "names": "b"})"), "name a names b ");
  EXPECT_EQ(read(R"({ "names" :"b","name":"a"})"), "names b name a ");
  EXPECT_EQ(read(R"({"\u006eames": "b", "nam\u0065": "a"})"), "names b name a ");
  EXPECT_EQ(read(R"({"nam": "a"})"),
            "t: /nam: expected one of the keys name, names; found \"nam\"");
  EXPECT_EQ(read(R"({"namesx": "a"})"),
            "t: /namesx: expected one of the keys name, names; found \"namesx\"");
  EXPECT_EQ(read(R"({"name": "a", "name": "b"})"),
            "name a t: /name: expected each key once; found \"name\" again");
  EXPECT_EQ(read(R"({"name)"),
            "t: line 1, column 7: expected the end of the string; found the end "
            "of the file");
}

TEST(JsonReaderTest, ATextTakesNoMoreMemoryThanItNeeds) {
  for (std::size_t length = 0; length < 70; ++length) {
    const std::string expected(length, 'x');
    const std::string inJson = '"' + expected + '"';
    std::string text;
    JsonReader(inJson, "t").string(text);
    EXPECT_EQ(text, expected);
    EXPECT_EQ(text.capacity(), expected.capacity()) << length;
    std::optional<std::string> optional;
    JsonReader(inJson, "t").stringOrNull(optional);
    EXPECT_EQ(optional, expected);
    EXPECT_EQ(optional->capacity(), expected.capacity()) << length;
  }
}

TEST(JsonReaderTest, ReplacesATextOfAnyLength) {
  for (const std::size_t before : {0, 5, 20, 40}) {
    std::string text(before, 'b');
    JsonReader(R"("after\n, and more than fifteen bytes")", "t").string(text);
    EXPECT_EQ(text, "after\n, and more than fifteen bytes");
    JsonReader(R"("")", "t").string(text);
    EXPECT_EQ(text, "");
  }
}

TEST(JsonReaderTest, RefusesAByteOrderMark) {
  EXPECT_EQ(stringError("\xEF\xBB\xBF\"a\""),
            "t: line 1, column 1: expected UTF-8 without a byte-order mark; found U+FEFF");
  EXPECT_EQ(stringError("\xFF\xFE\"\0a\0"),
            "t: line 1, column 1: expected UTF-8; found the byte 0xFF");
  EXPECT_EQ(string("\"\xEF\xBB\xBF\""), "\uFEFF") << "inside a string it is a character";
}

TEST(JsonReaderTest, TakesOnlyTheFourBlanksBetweenTokens) {
  EXPECT_EQ(string(" \t\n\r\"a\" \t\n\r"), "a");
  for (const char* blank : {"\v", "\f", "\u00A0", "\u2028", "//x\n", "/*x*/"}) {
    EXPECT_NE(stringError(std::string(blank) + "\"a\""), "") << blank;
    EXPECT_NE(stringError("\"a\"" + std::string(blank)), "") << blank;
  }
}

TEST(JsonReaderTest, ReadsArraysAndObjects) {
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

TEST(JsonReaderTest, ComparesKeysAfterTheirEscapes) {
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

TEST(JsonReaderTest, PointsIntoObjectsAndArrays) {
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

TEST(JsonReaderTest, RefusesBrokenPunctuation) {
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

TEST(JsonReaderTest, LeavesDuplicateKeysOfADictionaryToTheCaller) {
  std::vector<std::string> keys;
  JsonReader reader(R"({"a": "1", "b": "2", "a": "3"})", "t");
  reader.dictionary([&](const std::string& key) {
    keys.push_back(key);
    reader.string();
  });
  reader.finish();
  EXPECT_EQ(keys, (std::vector<std::string>{"a", "b", "a"}));
}

TEST(JsonReaderTest, ListsTheAllowedNames) {
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

TEST(JsonReaderTest, LooksAtTheNextKindWithoutReadingIt) {
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
