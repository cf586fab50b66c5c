#include "apps/documents/JsonWriter.hpp"

#include <limits>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vemra::documents {
namespace {

std::string written(std::string_view text) {
  JsonWriter out;
  out.string(text);
  return out.take();
}

TEST(JsonWriterTest, CharactersAreEscapedAtEveryPlaceAndNoOthers) {
  struct Case {
    std::string text, inJson;
  };
  const Case cases[] = {
      {"\"", "\\\""},
      {"\\", "\\\\"},
      {"\n", "\\n"},
      {"\x01", "\\u0001"},
      {"\x1f", "\\u001f"},
      {" ", " "},
      {"\x7f", "\x7f"},
      {"\u00e9", "\u00e9"},
      {"\xFF", "\uFFFD"},
      {"\"#", "\\\"#"},
      {"#\"", "#\\\""},
      {"\\]", "\\\\]"},
      {"]\\", "]\\\\"},
      {"\x1f ", "\\u001f "},
      {" \x1f", " \\u001f"},
      {"!#[]", "!#[]"},
      {"\"\\\"", "\\\"\\\\\\\""},
  };
  for (const Case& example : cases) {
    for (std::size_t before = 0; before < 20; ++before) {
      for (std::size_t after = 0; after < 10; ++after) {
        const std::string start(before, 'a');
        const std::string end(after, 'z');
        const std::string wanted = '"' + start + example.inJson + end + '"';
        EXPECT_EQ(written(start + example.text + end), wanted);
      }
    }
  }
}

TEST(JsonWriterTest, LayoutsAreTheCallers) {
  JsonWriter out;
  out.beginObject(Layout::lines);
  out.key("a");
  out.beginArray(Layout::lines);
  out.integer(1);
  out.beginArray(Layout::inLine);
  out.string("x");
  out.beginObject(Layout::lines);
  out.key("k");
  out.null();
  out.key("l");
  out.boolean(true);
  out.endObject();
  out.endArray();
  out.endArray();
  out.key("none");
  out.beginArray(Layout::lines);
  out.endArray();
  out.key("empty");
  out.beginObject(Layout::inLine);
  out.endObject();
  out.endObject();
  EXPECT_EQ(out.take(), R"json({
  "a": [
    1,
    ["x", {
      "k": null,
      "l": true
    }]
  ],
  "none": [],
  "empty": {}
})json");
}

TEST(JsonWriterTest, TakeLeavesAnEmptyWriter) {
  JsonWriter out;
  out.integer(std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(out.take(), "-9223372036854775808");
  out.stringOrNull(std::nullopt);
  EXPECT_EQ(out.take(), "null");
}

TEST(JsonWriterTest, EscapesOnlyRequiredCharacters) {
  EXPECT_EQ(written("\"\\/\b\f\n\r\t"), R"("\"\\/\b\f\n\r\t")");
  EXPECT_EQ(written(std::string_view("\0\x01\x1F\x7F", 4)), "\"\\u0000\\u0001\\u001f\x7F\"");
  EXPECT_EQ(written("é e\u0301 😀 \u2028 <b>&"), "\"é e\u0301 😀 \u2028 <b>&\"");
}

TEST(JsonWriterTest, ReplacesEachIllFormedByte) {
  EXPECT_EQ(written("a\xFFz"), "\"a\uFFFDz\"");
  EXPECT_EQ(written("\xC3"), "\"\uFFFD\"");
  EXPECT_EQ(written("\xED\xA0\x80!"), "\"\uFFFD\uFFFD\uFFFD!\"");
  EXPECT_EQ(written("é\xE2\x82é"), "\"é\uFFFD\uFFFDé\"");
}

TEST(JsonWriterTest, AnotherReaderReadsEveryCharacterBack) {
  for (char32_t scalar = 0; scalar < 0x110000; scalar += scalar < 0x300 ? 1 : 257) {
    if (scalar >= 0xD800 && scalar < 0xE000) continue;
    char escape[32];
    if (scalar < 0x10000) {
      std::snprintf(escape, sizeof escape, "\"\\u%04x\"", static_cast<unsigned>(scalar));
    } else {
      std::snprintf(escape, sizeof escape, "\"\\u%04x\\u%04x\"",
                    static_cast<unsigned>(0xD800 + ((scalar - 0x10000) >> 10)),
                    static_cast<unsigned>(0xDC00 + ((scalar - 0x10000) & 0x3FF)));
    }
    const std::string character = nlohmann::json::parse(escape).get<std::string>();
    EXPECT_EQ(nlohmann::json::parse(written(character)).get<std::string>(), character) << escape;
  }
}

}  // namespace
}  // namespace vemra::documents
