// Random pairs, compared with a plain implementation of the definition: equal bytes, or both
// well-formed and with the same Normalization Form D. The fast comparison must agree with it.

#include "VemraPlatform/text/Equality.hpp"
#include "tests/VemraPlatform/text/Definition.hpp"
#include "tests/VemraPlatform/text/RandomText.hpp"
#include "tests/VemraPlatform/text/Samples.hpp"

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

constexpr std::uint64_t seed = 20250105;

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

TEST(RandomPairs, OfOneTextInTwoForms) {
  Random chance(seed);
  RandomText random(chance);
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

TEST(RandomPairs, OfShortTextsFromFewCharacters) {
  Random chance(seed);
  RandomText random(chance);
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
