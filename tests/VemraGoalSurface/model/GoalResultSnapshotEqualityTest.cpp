#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "tests/VemraGoalSurface/model/SampleSnapshot.hpp"

#include <vector>

#include <gtest/gtest.h>

namespace vemra {
namespace {

struct Change {
  const char* field;
  void (*apply)(GetGoalSnapshotResponse&);
};

TEST(GoalResultSnapshotEquality, EachOfTheSixFieldsTakesPart) {
  const std::vector<Change> changes = {
      {"goal", [](GetGoalSnapshotResponse& response) { response.goal.title = "other"; }},
      {"goal, a field no screen shows",
       [](GetGoalSnapshotResponse& response) { response.goal.attachmentRefs = {}; }},
      {"people", [](GetGoalSnapshotResponse& response) { response.people = {}; }},
      {"paths", [](GetGoalSnapshotResponse& response) { response.paths = {}; }},
      {"group", [](GetGoalSnapshotResponse& response) { response.group = {}; }},
      {"coverage", [](GetGoalSnapshotResponse& response) { ++response.coverage.evidenceCount; }},
      {"outcomes", [](GetGoalSnapshotResponse& response) { response.outcomes = {}; }},
  };
  const GoalResultSnapshotV1 original = sample::snapshot();
  EXPECT_TRUE(original == sample::snapshot());
  for (const Change& change : changes) {
    GetGoalSnapshotResponse response = sample::response();
    change.apply(response);
    const GoalResultSnapshotV1 changed(std::move(response));
    EXPECT_FALSE(original == changed) << change.field;
    EXPECT_FALSE(changed == original) << change.field;
    EXPECT_TRUE(original != changed) << change.field;
  }
}

TEST(GoalResultSnapshotEquality, TheOrderOfPeopleMatters) {
  GoalPersonCandidateDTO anna = sample::person();
  anna.personRef = "anna";
  GoalPersonCandidateDTO bo = sample::person();
  bo.personRef = "bo";
  GetGoalSnapshotResponse oneWay = sample::response();
  oneWay.people = {anna, bo};
  GetGoalSnapshotResponse theOther = sample::response();
  theOther.people = {bo, anna};
  EXPECT_FALSE(GoalResultSnapshotV1(oneWay) == GoalResultSnapshotV1(theOther));
  theOther.people = {anna, bo};
  EXPECT_TRUE(GoalResultSnapshotV1(oneWay) == GoalResultSnapshotV1(theOther));
}

TEST(GoalResultSnapshotEquality, ALongerListIsNotEqual) {
  GetGoalSnapshotResponse longer = sample::response();
  longer.outcomes = {sample::outcome(), sample::outcome()};
  EXPECT_FALSE(GoalResultSnapshotV1(longer) == sample::snapshot());
}

TEST(GoalResultSnapshotEquality, StringsAreComparedUnderCanonicalEquivalence) {
  EXPECT_TRUE(sample::snapshot(sample::composed) == sample::snapshot(sample::decomposed));
}

TEST(GoalResultSnapshotEquality, CopiesAndEmptySnapshotsAreEqual) {
  const GoalResultSnapshotV1 snapshot = sample::snapshot();
  const GoalResultSnapshotV1 copy = snapshot;
  EXPECT_TRUE(snapshot == copy);
  EXPECT_TRUE(GoalResultSnapshotV1(GetGoalSnapshotResponse{}) ==
              GoalResultSnapshotV1(GetGoalSnapshotResponse{}));
}

}  // namespace
}  // namespace vemra
