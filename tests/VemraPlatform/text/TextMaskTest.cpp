#include "VemraPlatform/text/Equality.hpp"
#include "VemraPlatform/text/TextMask.hpp"
#include "VemraPlatform/text/Trim.hpp"
#include "VemraPlatform/text/UTF8.hpp"
#include "tests/Random.hpp"

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::text {
namespace {

std::size_t codePoints(std::string_view text) {
  std::size_t count = 0;
  for (Step step = firstStep(text); step.length > 0; step = firstStep(text)) {
    text.remove_prefix(step.length);
    ++count;
  }
  return count;
}

class TextMaskTest : public ::testing::Test {
 protected:
  TextMask mask{1};
};

TEST_F(TextMaskTest, KeepsBlanksPunctuationAndSymbols) {
  const std::string masked = mask.masked(" - (+49), “?” \u2615\n");
  EXPECT_TRUE(masked.starts_with(" - (+")) << masked;
  EXPECT_TRUE(masked.ends_with("), “?” \u2615\n")) << masked;
  EXPECT_EQ(mask.masked(""), "");
}

TEST_F(TextMaskTest, NoLetterOfALatinTextIsLeftAndDigitsBecomeDigits) {
  const std::string masked = mask.masked("Ada met 12 people");
  for (const char byte : masked) {
    EXPECT_FALSE((byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z')) << masked;
  }
  EXPECT_NE(masked.find_first_of("0123456789"), std::string::npos) << masked;
  EXPECT_EQ(masked.find("12"), std::string::npos) << masked;
}

TEST_F(TextMaskTest, KeepsTheNumberOfCodePointsInBothNormalizationForms) {
  for (const char* text :
       {"Ada Lovelace", "Zo\u00eb", "Zoe\u0308", "Nguy\u1ec5n Th\u1ecb Mai", "Nguye\u0302\u0303n",
        "\u00c5ngstr\u00f6m", "\u0410\u0439\u0434\u0430", "\uac00\ub098\ub2e4", "\u1100\u1161",
        "\u304c\u3093\u3070\u308b", "\u6f22\u5b57", "\u05d0\u05d1\u05d2", "\u0639\u0644\u064a",
        "\u0915\u094d\u0937", "a\u0323\u0301", "q\u030c", "p1 ev9 42"}) {
    const std::string masked = mask.masked(text);
    EXPECT_EQ(codePoints(masked), codePoints(text)) << text << " became " << masked;
    EXPECT_NE(masked, text);
  }
}

TEST_F(TextMaskTest, CanonicallyEqualTextsHaveCanonicallyEqualMasks) {
  for (const auto& [a, b] :
       std::vector<std::pair<std::string, std::string>>{{"Zo\u00eb", "Zoe\u0308"},
                                                        {"\u1ec5", "e\u0302\u0303"},
                                                        {"\u212b", "\u00c5"},
                                                        {"\uac00", "\u1100\u1161"},
                                                        {"\u2260 a", "=\u0338 a"},
                                                        {"a\u0323\u0301", "a\u0301\u0323"}}) {
    EXPECT_TRUE(equal(mask.masked(a), mask.masked(b))) << a;
  }
  EXPECT_NE(mask.masked("Zo\u00eb"), mask.masked("Zoe\u0308")) << "each in its own form";
}

TEST_F(TextMaskTest, DifferentWordsNeverHaveEqualMasksHoweverManyThereAre) {
  std::set<std::string> masks;
  int texts = 0;
  const auto add = [&](const std::string& text) {
    masks.insert(mask.masked(text));
    ++texts;
  };
  for (char first = 'a'; first <= 'z'; ++first) {
    add({first});
    for (char second = 'a'; second <= 'z'; ++second) add({first, second});
  }
  for (int number = 0; number < 100; ++number) add(std::to_string(number));
  EXPECT_EQ(masks.size(), static_cast<std::size_t>(texts));
}

TEST_F(TextMaskTest, EqualTextsHaveOneMaskAlsoAsPartsOfOthers) {
  const std::string ada = mask.masked("Ada");
  EXPECT_EQ(mask.masked("Ada"), ada);
  EXPECT_EQ(mask.masked("  Ada, Ada: "), "  " + ada + ", " + ada + ": ");
  EXPECT_NE(mask.masked("ada"), ada) << "case makes another word";
  EXPECT_EQ(trimmed(mask.masked("\u3000Ada\n")), ada);
}

TEST_F(TextMaskTest, AMaskIsNoneOfTheWordsToAvoid) {
  // Any two syllables of Korean may be a word, so that only the list of words keeps masks from it.
  std::vector<std::string> words;
  for (char32_t first = 0xAC00; first < 0xAC00 + 2000; ++first) {
    append(words.emplace_back(), first);
    mask.avoid(words.back());
  }
  const std::set<std::string> all(words.begin(), words.end());
  for (const std::string& word : words) EXPECT_FALSE(all.contains(mask.masked(word)));
}

TEST_F(TextMaskTest, KeepsCaseDirectionAndWidth) {
  EXPECT_EQ(mask.masked("A").size(), 2U);
  EXPECT_NE(mask.masked("A"), mask.masked("a"));
  const char32_t hebrew = *firstStep(mask.masked("\u05d0")).scalar;
  EXPECT_TRUE(hebrew >= 0x0710 && hebrew <= 0x072F) << "another letter from right to left";
  const char32_t ideograph = *firstStep(mask.masked("\u6f22")).scalar;
  EXPECT_TRUE(ideograph >= 0x3400 && ideograph <= 0x4DB5) << "another wide letter";
}

TEST_F(TextMaskTest, IllFormedBytesBecomeReplacementCharacters) {
  EXPECT_EQ(mask.masked("\xC3 \xFF"), "\uFFFD \uFFFD");
}

TEST_F(TextMaskTest, AnotherSeedGivesOtherMasks) {
  TextMask other(2);
  EXPECT_NE(mask.masked("Ada Lovelace"), other.masked("Ada Lovelace"));
}

TEST_F(TextMaskTest, RandomTextsAreEqualExactlyWhenTheirMasksAre) {
  testing::Random random(7);
  const std::vector<std::string> parts{
      "a",      "e\u0301", "\u00e9",       " ",      "1", "\uac00",
      "\u0323", "-",       "\u304b\u3099", "\u304c", "B", "\u05d0"};
  const auto text = [&] {
    std::string built;
    for (int length = 0; length < 3; ++length) built += parts[random.below(parts.size())];
    return built;
  };
  int equals = 0;
  for (int round = 0; round < 4000; ++round) {
    const std::string a = text();
    const std::string b = text();
    const bool areEqual = equal(a, b);
    equals += areEqual;
    ASSERT_EQ(equal(mask.masked(a), mask.masked(b)), areEqual) << a << " and " << b;
  }
  EXPECT_GT(equals, 0);
}

}  // namespace
}  // namespace vemra::text
