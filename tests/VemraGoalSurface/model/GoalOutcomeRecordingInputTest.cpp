#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"

#include <algorithm>
#include <concepts>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra {
namespace {

using Input = GoalOutcomeRecordingInput;
using enum GoalOutcomeSubjectKind;
constexpr GoalOutcomeValue helped = GoalOutcomeValue::helped;

TEST(GoalOutcomeRecordingInput, StoresTheFiveValuesAsGiven) {
  const Input input{path, "  Rene\u0301 ", GoalOutcomeValue::somethingElse, " \n ", ""};
  EXPECT_EQ(input.subjectKind(), path);
  EXPECT_EQ(input.subjectRef(), "  Rene\u0301 ");
  EXPECT_EQ(input.outcome(), GoalOutcomeValue::somethingElse);
  EXPECT_EQ(input.note(), " \n ") << "nothing is trimmed here";
  EXPECT_EQ(input.correctsOutcomeID(), "");
}

TEST(GoalOutcomeRecordingInput, EveryFieldTakesPartInEquality) {
  const auto original = [] { return Input{person, "anna", helped, "thanks", "o-1"}; };
  EXPECT_TRUE(original() == original());
  const std::vector<Input> others = {
      {path, "anna", helped, "thanks", "o-1"},
      {person, "bo", helped, "thanks", "o-1"},
      {person, std::nullopt, helped, "thanks", "o-1"},
      {person, "anna", GoalOutcomeValue::introduced, "thanks", "o-1"},
      {person, "anna", helped, "thanks!", "o-1"},
      {person, "anna", helped, std::nullopt, "o-1"},
      {person, "anna", helped, "thanks", "o-2"},
      {person, "anna", helped, "thanks", std::nullopt},
  };
  for (std::size_t i = 0; i < others.size(); ++i) {
    EXPECT_FALSE(original() == others[i]) << "change " << i;
    EXPECT_FALSE(others[i] == original()) << "change " << i;
  }
}

TEST(GoalOutcomeRecordingInput, AnAbsentStringIsNotAnEmptyOne) {
  EXPECT_FALSE(
      (Input{person, "a", helped, std::nullopt, {}} == Input{person, "a", helped, "", {}}));
  EXPECT_FALSE((Input{person, {}, helped, {}, {}} == Input{person, "", helped, {}, {}}));
  EXPECT_FALSE((Input{person, {}, helped, {}, {}} == Input{person, {}, helped, {}, ""}));
  EXPECT_TRUE((Input{person, {}, helped, {}, {}} == Input{person, {}, helped, {}, {}}));
}

TEST(GoalOutcomeRecordingInput, StringsAreComparedUnderCanonicalEquivalence) {
  EXPECT_TRUE((Input{person, "\u00e9", helped, "\u00c5", "\uac00"} ==
               Input{person, "e\u0301", helped, "A\u030a", "\u1100\u1161"}));
}

TEST(GoalOutcomeRecordingInput, IsAFirstRecordingWithoutANoteUnlessGivenMore) {
  EXPECT_TRUE((Input{person, "anna", helped} == Input{person, "anna", helped, {}, {}}));
}

TEST(GoalOutcomeRecordingInput, IsCopiedAssignedSwappedAndErasedLikeAnyValue) {
  static_assert(std::copyable<Input> && std::swappable<Input>);
  const Input anna{person, "anna", helped, "thanks", "o-1"}, bo{path, "bo", helped};
  Input first = anna, second = bo;
  std::swap(first, second);
  EXPECT_TRUE(first == bo && second == anna);
  second = first;
  EXPECT_TRUE(second == bo);

  std::vector<Input> kept{anna, bo, anna};
  kept.erase(kept.begin());
  std::ranges::reverse(kept);
  EXPECT_TRUE((kept == std::vector{anna, bo}));
}

}  // namespace
}  // namespace vemra
