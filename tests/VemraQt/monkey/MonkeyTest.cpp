// Random steps on a window: presses, typing, choosing, scrolling and resizing while results change.
// A screen without a window gets the equivalent events, and both must agree after every step.
//
// When they do not, the test prints the shortest story it can find that fails in the same way, to
// paste into a test of its own: EXPECT_EQ(tell(0, Story{…}), std::nullopt). A story is chosen by
// its seed:
//
//     VEMRA_MONKEY_SEED=12 VEMRA_MONKEY_STEPS=400 build/debug/tests/test_monkey --gtest_filter='*ChosenSeed*'

#include "tests/VemraQt/monkey/Run.hpp"

#include <cstdlib>

#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::monkey;

namespace {

// In each of eight shards: 25,600 steps in all, or 6,400 where a sanitizer checks each of them.
// VEMRA_MONKEY_STORIES takes another number.
#ifdef VEMRA_ADDRESS_SANITIZER
constexpr std::uint64_t storiesInAShard = 2;
#else
constexpr std::uint64_t storiesInAShard = 8;
#endif
constexpr std::size_t stepsInAStory = 400;

std::uint64_t numberFrom(const char* variable, std::uint64_t otherwise) {
  const char* text = std::getenv(variable);
  return text ? std::strtoull(text, nullptr, 10) : otherwise;
}

class Shards : public ::testing::TestWithParam<std::uint64_t> {};

}  // namespace

TEST_P(Shards, WindowAndScreenAgreeWhateverHappens) {
  const std::uint64_t stories = numberFrom("VEMRA_MONKEY_STORIES", storiesInAShard);
  for (std::uint64_t i = 0; i < stories; ++i) {
    const std::uint64_t seed = GetParam() * 1000 + i;
    const auto failure = tell(seed, randomStory(seed, stepsInAStory));
    ASSERT_FALSE(failure) << *failure;
  }
}

INSTANTIATE_TEST_SUITE_P(Monkey, Shards, ::testing::Range<std::uint64_t>(1, 9));

TEST(Monkey, AgreesOnTwentyThousandPeople) {
  const auto failure = tell(20'000, randomStory(20'000, 25, 20'000));
  ASSERT_FALSE(failure) << *failure;
}

TEST(Monkey, ChosenSeed) {
  const std::uint64_t seed = numberFrom("VEMRA_MONKEY_SEED", 1);
  const auto failure = tell(seed, randomStory(seed, numberFrom("VEMRA_MONKEY_STEPS", 100)));
  ASSERT_FALSE(failure) << *failure;
}
