#include "VemraGoalEngine/GoalWhyDTO.hpp"
#include "tests/VemraGoalEngine/EqualityLaw.hpp"

#include <limits>

#include <gtest/gtest.h>

namespace vemra {
namespace {

TEST(GoalWhy, EveryPartOfAReasonTakesPartInEquality) {
  using Evidence = GoalWhyDTO::Evidence;
  testing::expectEachChangeToMatter<Evidence>(
      [] {
        return Evidence{"Email", "Asked", "mail-7"};
      },
      {
          {"label", [](Evidence& evidence) { evidence.label = "Mail"; }},
          {"detail", [](Evidence& evidence) { evidence.detail = ""; }},
          {"reference", [](Evidence& evidence) { evidence.reference += " "; }},
      });
  EXPECT_TRUE(GoalWhyDTO::connection(2) == GoalWhyDTO::connection(2));
  EXPECT_FALSE(GoalWhyDTO::connection(2) == GoalWhyDTO::connection(3));
  EXPECT_TRUE(GoalWhyDTO::sharedActivity(1, 2) == GoalWhyDTO::sharedActivity(1, 2));
  EXPECT_FALSE(GoalWhyDTO::sharedActivity(1, 2) == GoalWhyDTO::sharedActivity(2, 2));
  EXPECT_FALSE(GoalWhyDTO::sharedActivity(1, 2) == GoalWhyDTO::sharedActivity(1, 1));
}

TEST(GoalWhy, DifferentReasonsAreNeverEqual) {
  const GoalWhyDTO reasons[] = {GoalWhyDTO::evidence("", "", ""),
                                GoalWhyDTO::connection(0),
                                GoalWhyDTO::sharedActivity(0, 0),
                                GoalWhyDTO::nameMatch(),
                                GoalWhyDTO::generic(),
                                {GoalWhyDTO::Plain(2)},
                                {GoalWhyDTO::Plain(3)}};
  for (const GoalWhyDTO& a : reasons) {
    for (const GoalWhyDTO& b : reasons) EXPECT_EQ(a == b, &a == &b);
  }
}

TEST(GoalWhy, TextsAreEqualInEitherNormalForm) {
  EXPECT_TRUE(GoalWhyDTO::evidence("\u00e9", "\u212b", "\uac00") ==
              GoalWhyDTO::evidence("e\u0301", "A\u030a", "\u1100\u1161"));
}

TEST(GoalWhy, EachFactoryFunctionMakesItsReason) {
  const GoalWhyDTO evidence = GoalWhyDTO::evidence("a", "b", "c");
  const auto& payload = std::get<GoalWhyDTO::Evidence>(evidence.reason);
  EXPECT_EQ(payload.label, "a");
  EXPECT_EQ(payload.detail, "b");
  EXPECT_EQ(payload.reference, "c");
  const std::int64_t most = std::numeric_limits<std::int64_t>::max();
  EXPECT_EQ(std::get<GoalWhyDTO::Connection>(GoalWhyDTO::connection(most).reason).hopCount, most);
  EXPECT_EQ(std::get<GoalWhyDTO::Plain>(GoalWhyDTO::nameMatch().reason),
            GoalWhyDTO::Plain::nameMatch);
  EXPECT_EQ(std::get<GoalWhyDTO::Plain>(GoalWhyDTO::generic().reason), GoalWhyDTO::Plain::generic);
}

// By index, the alternatives with figures come first and then the plain ones, of which "matches on
// name" is the first.
TEST(GoalWhy, ReasonsAreInTheEnginesOrder) {
  EXPECT_EQ(GoalWhyDTO::evidence("", "", "").reason.index(), 0U);
  EXPECT_EQ(GoalWhyDTO::connection(0).reason.index(), 1U);
  EXPECT_EQ(GoalWhyDTO::sharedActivity(0, 0).reason.index(), 2U);
  EXPECT_EQ(GoalWhyDTO::nameMatch().reason.index(), 3U);
  EXPECT_EQ(static_cast<int>(GoalWhyDTO::Plain::nameMatch), 0);
  EXPECT_EQ(static_cast<int>(GoalWhyDTO::Plain::generic), 1);
}

}  // namespace
}  // namespace vemra
