// Compiled with the warnings of a careful host, as errors (CMakeLists.txt).

#include "VemraGoalEngine/GoalRecords.hpp"

#include <gtest/gtest.h>

namespace vemra {
namespace {

TEST(RecordsInPart, TakeOnlyTheFieldsThatAHostNeeds) {
  const GetGoalSnapshotResponse answer{
      .goal = {.id = "g1"},
      .people = {{.personRef = "p1"}, {.personRef = "p2", .why = {GoalWhyDTO::SharedActivity{}}}},
      .paths = {{.personRefs = {"p1", "p2"}}},
      .group = {{.id = "group"}},
      .coverage = {.evidenceCount = 3},
      .outcomes = {{.id = "o1", .note = "met"}}};
  const GoalWhyDTO::Evidence evidence{.label = "Email"};
  const GoalWhyDTO::Connection connection{};
  const GoalWhyDTO::SharedActivity activity{.meetingCount = 2};
  const GoalDTO goal{.id = "g1", .title = "Find a design lead"};
  EXPECT_EQ(answer.goal.title, "");
  EXPECT_EQ(answer.outcomes[0].value, GoalOutcomeValue::reachedOut);
  EXPECT_EQ(evidence.detail, "");
  EXPECT_EQ(connection.hopCount + activity.threadCount + goal.keywordsRevision, 0);
  EXPECT_TRUE((GetGoalSnapshotResponse{.goal = goal} == GetGoalSnapshotResponse{goal}));
}

}  // namespace
}  // namespace vemra
