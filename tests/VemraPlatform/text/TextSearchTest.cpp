#include "VemraPlatform/text/TextSearch.hpp"

#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace vemra::text {
namespace {

bool isIn(const char* sought, const char* text) {
  return TextSearch(sought).isIn(text);
}

TEST(TextSearch, ATextIsFoundAnywhere) {
  for (const char* sought : {"Ada", "da L", "Lovelace", "Ada Lovelace"}) {
    EXPECT_TRUE(isIn(sought, "Ada Lovelace")) << sought;
  }
  for (const char* sought : {"Adam", "AdaL", "Ada Lovelace."}) {
    EXPECT_FALSE(isIn(sought, "Ada Lovelace")) << sought;
  }
  EXPECT_FALSE(isIn("Ada", ""));
}

TEST(TextSearch, NeitherCaseNorAccentsCount) {
  EXPECT_TRUE(isIn("AMELIE", "Am\u00e9lie"));
  EXPECT_TRUE(isIn("am\u00c9lie", "Amelie"));
  EXPECT_TRUE(isIn("STRASSE", "Stra\u00dfe"));
  EXPECT_FALSE(isIn("ahnlich", "\u00f6hnlich"));
}

TEST(TextSearch, CanonicallyEqualTextsAreEqual) {
  EXPECT_TRUE(isIn("ame\u0301lie", "Am\u00e9lie"));
  EXPECT_TRUE(isIn("\uac00", "\u1100\u1161")) << "a syllable and its jamo";
  EXPECT_TRUE(isIn("\u212b", "A\u030angstr\u00f6m"));
}

TEST(TextSearch, ATextInWhichNothingCountsIsFoundNowhere) {
  for (const char* sought : {"", "\u0301", "\u00ad"}) {
    EXPECT_TRUE(TextSearch(sought).isEmpty());
    EXPECT_FALSE(isIn(sought, "e\u0301\u00ad"));
  }
  EXPECT_FALSE(TextSearch("a").isEmpty());
}

TEST(TextSearch, OneSearchServesManyTextsAndMayMove) {
  TextSearch search("ada");
  EXPECT_TRUE(search.isIn(std::string("Ada Lovelace")));
  TextSearch moved = std::move(search);
  EXPECT_FALSE(moved.isIn("Grace"));
  EXPECT_TRUE(moved.isIn("Nevada"));
}

TEST(TextSearch, BytesThatAreNotUTF8AreNoLetters) {
  EXPECT_TRUE(isIn("ada", "\xff ada"));
  EXPECT_FALSE(isIn("ada",
                    "ad\xff"
                    "a"));
}

}  // namespace
}  // namespace vemra::text
