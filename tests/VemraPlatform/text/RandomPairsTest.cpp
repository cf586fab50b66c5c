// Random pairs against the definition, written down plainly: equal bytes, or both well-formed and
// with the same Normalization Form D. Whatever makes the comparison fast has to agree with it.

#include "VemraPlatform/text/Equality.hpp"
#include "tests/VemraPlatform/text/Samples.hpp"

#include <random>

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

namespace vemra::testing {
namespace {

bool isWellFormed(const std::string& text) {
  std::size_t index = 0;
  while (index < text.size()) {
    UChar32 scalar = 0;
    U8_NEXT(text.data(), index, text.size(), scalar);
    if (scalar < 0) return false;
  }
  return true;
}

icu::UnicodeString decomposed(const std::string& text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* form = icu::Normalizer2::getNFDInstance(status);
  icu::UnicodeString result = form->normalize(icu::UnicodeString::fromUTF8(text), status);
  EXPECT_TRUE(U_SUCCESS(status));
  return result;
}

bool areSameByDefinition(const std::string& a, const std::string& b) {
  if (a == b) return true;
  return isWellFormed(a) && isWellFormed(b) && decomposed(a) == decomposed(b);
}

/// Characters that normalisation does something with, their parts, and ordinary ones between them.
constexpr std::u32string_view alphabet =
    U"abcdefghiK;` \u00E9\u00E8\u00C5\u212B\u212A\u037E\u1FEF\u0301\u0300\u0323\u0302\u030A\u0308"
    U"\u0344\u1EAD\u01D5\u00DC\u0304\u1112\u1161\u11AB\uD558\uD55C\u0915\u093C\u0958\u3099\u304B"
    U"\u304C\u4E00\uF900\u8C48\uFB01\u0F71\u0F72\u0F73\u0F74\u0F80\u0F81\u05D0\u05BC\uFB30"
    U"\U0001D15E\U0001D157\U0001D165\U0001F600\u0345\u03B1\u1FB3\u00B7\u0387";

class RandomText {
 public:
  std::size_t below(std::size_t limit) { return random_() % limit; }

  std::string scalars(std::size_t most) {
    std::u32string text;
    for (std::size_t count = below(most + 1); count > 0; --count) {
      text += alphabet[below(alphabet.size())];
    }
    return utf8(text);
  }

  /// The same text in another form, or nearly: one character may be added, lost or replaced.
  std::string variantOf(const std::string& text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::array forms{
        icu::Normalizer2::getNFCInstance(status), icu::Normalizer2::getNFDInstance(status),
        icu::Normalizer2::getNFKCInstance(status),
        icu::Normalizer2::getInstance(nullptr, "nfc", UNORM2_COMPOSE_CONTIGUOUS, status)};
    icu::UnicodeString units =
        forms[below(forms.size())]->normalize(icu::UnicodeString::fromUTF8(text), status);
    const auto place =
        static_cast<std::int32_t>(below(static_cast<std::size_t>(units.length()) + 1));
    const auto scalar = static_cast<UChar32>(alphabet[below(alphabet.size())]);
    switch (below(5)) {
      case 0:
        units.insert(units.getChar32Start(place), scalar);
        break;
      case 1:
        if (place < units.length()) units.replace(place, 1, scalar);
        break;
      default:
        break;
    }
    std::string variant;
    return units.toUTF8String(variant);
  }

  /// Now and then breaks a text by changing one byte.
  void spoil(std::string& text) {
    if (!text.empty() && below(8) == 0) text[below(text.size())] = static_cast<char>(below(256));
  }

 private:
  std::mt19937 random_{20250105};
};

struct Tally {
  std::size_t equal = 0;
  std::size_t different = 0;

  void compare(const std::string& a, const std::string& b) {
    const bool areSame = areSameByDefinition(a, b);
    EXPECT_EQ(text::equal(a, b), areSame) << inHex(a) << "and " << inHex(b);
    EXPECT_EQ(text::equal(b, a), areSame) << inHex(b) << "and " << inHex(a);
    if (areSame) {
      EXPECT_EQ(text::hash(a), text::hash(b)) << inHex(a) << "and " << inHex(b);
      EXPECT_FALSE(text::differAtAGlance(a, b)) << inHex(a) << "and " << inHex(b);
    }
    ++(areSame ? equal : different);
  }
};

TEST(RandomPairs, ofOneTextInTwoForms) {
  RandomText random;
  Tally tally;
  for (int round = 0; round < 200000 && !::testing::Test::HasFailure(); ++round) {
    const std::string text = random.scalars(12);
    std::string other = random.variantOf(text);
    random.spoil(other);
    tally.compare(text, other);
  }
  EXPECT_GT(tally.equal, 50000U);
  EXPECT_GT(tally.different, 50000U);
}

TEST(RandomPairs, ofShortTextsFromFewCharacters) {
  RandomText random;
  Tally tally;
  for (int round = 0; round < 200000 && !::testing::Test::HasFailure(); ++round) {
    std::string a = random.scalars(2);
    std::string b = random.scalars(2);
    random.spoil(a);
    random.spoil(b);
    tally.compare(a, b);
  }
  EXPECT_GT(tally.equal, 1000U);
  EXPECT_GT(tally.different, 100000U);
}

}  // namespace
}  // namespace vemra::testing
