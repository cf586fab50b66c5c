#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraGoalSurface/presentation/GoalGapPresentation.hpp"
#include "VemraGoalSurface/presentation/GoalWhyPresentation.hpp"

#include <string>

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

TEST(GoalGapPresentation, AllTextsOfTheScreenAreStringsOfOneKind) {
  const std::string gap = GoalGapPresentation::text(GoalPathGap::noTargetPerson);
  const std::string label = GoalOutcomeRecordingFormLogic::label(GoalOutcomeValue::helped);
  const std::string why = GoalWhyPresentation::text(GoalWhyDTO::nameMatch());
  EXPECT_EQ(label + ", " + why, "Helped, Matches on name");
  EXPECT_FALSE(gap.empty());
}

}  // namespace
}  // namespace vemra
