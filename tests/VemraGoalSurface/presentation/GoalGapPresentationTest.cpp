#include "VemraGoalSurface/presentation/GoalGapPresentation.hpp"

#include <gtest/gtest.h>

namespace vemra {
namespace {

TEST(GoalGapPresentation, SaysWhyThereAreNoPeople) {
  EXPECT_EQ(GoalGapPresentation::text(GoalPeopleGap::noEvidenceYet),
            "No relevant people found yet.");
  EXPECT_EQ(GoalGapPresentation::text(GoalPeopleGap::evidenceButNoRelevantPeople),
            "Nothing points to a specific person for this yet.");
}

TEST(GoalGapPresentation, SaysWhyThereIsNoPath) {
  EXPECT_EQ(GoalGapPresentation::text(GoalPathGap::noTargetPerson),
            "This goal doesn\x27t name someone to find a path to.");
  EXPECT_EQ(GoalGapPresentation::text(GoalPathGap::noConnectionFound),
            "No supported path to them yet.");
}

TEST(GoalGapPresentation, AnInvalidValueHasNoSentence) {
  EXPECT_EQ(GoalGapPresentation::text(GoalPeopleGap(2)), "");
  EXPECT_EQ(GoalGapPresentation::text(GoalPathGap(2)), "");
}

}  // namespace
}  // namespace vemra
