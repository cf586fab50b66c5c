#include "VemraGoalEngine/GoalRecords.hpp"
#include "tests/VemraGoalEngine/SampleRecords.hpp"

#include <type_traits>

#include <gtest/gtest.h>

// The engine declares its records in a fixed order, and code that fills them by position relies on
// it. Taking a record apart names every field in turn: one more, one fewer or one elsewhere does
// not compile, or gives another field's value.

namespace vemra {
namespace {

template <class First, class... Rest>
constexpr bool sameSize = ((sizeof(First) == sizeof(Rest)) && ...);

TEST(GoalRecordFieldOrder, Goal) {
  const GoalDTO record = sample::goal();
  const auto& [id, title, status, targetPersonRef, createdAt, updatedAt, priority, keywords,
               keywordsRevision, constraints, constraintsRevision, attachmentRefs] = record;
  EXPECT_EQ(&id, &record.id);
  EXPECT_EQ(&title, &record.title);
  EXPECT_EQ(&status, &record.status);
  EXPECT_EQ(&targetPersonRef, &record.targetPersonRef);
  EXPECT_EQ(&createdAt, &record.createdAt);
  EXPECT_EQ(&updatedAt, &record.updatedAt);
  EXPECT_EQ(&priority, &record.priority);
  EXPECT_EQ(&keywords, &record.keywords);
  EXPECT_EQ(&keywordsRevision, &record.keywordsRevision);
  EXPECT_EQ(&constraints, &record.constraints);
  EXPECT_EQ(&constraintsRevision, &record.constraintsRevision);
  EXPECT_EQ(&attachmentRefs, &record.attachmentRefs);
  static_assert(sameSize<std::uint8_t, GoalStatus, GoalPriority>, "one byte each");
  static_assert(std::is_same_v<decltype(GoalDTO::keywordsRevision), std::int64_t>);
  static_assert(std::is_same_v<decltype(GoalDTO::constraintsRevision), std::int64_t>);
}

TEST(GoalRecordFieldOrder, Person) {
  const GoalPersonCandidateDTO record = sample::person();
  const auto& [personRef, displayName, why, evidenceIDs] = record;
  EXPECT_EQ(&personRef, &record.personRef);
  EXPECT_EQ(&displayName, &record.displayName);
  EXPECT_EQ(&why, &record.why);
  EXPECT_EQ(&evidenceIDs, &record.evidenceIDs);
}

TEST(GoalRecordFieldOrder, Path) {
  const GoalPathCandidateDTO record = sample::path();
  const auto& [personRefs, why, strength] = record;
  EXPECT_EQ(&personRefs, &record.personRefs);
  EXPECT_EQ(&why, &record.why);
  EXPECT_EQ(&strength, &record.strength);
  static_assert(std::is_same_v<decltype(GoalPathCandidateDTO::strength), std::int64_t>);
}

TEST(GoalRecordFieldOrder, Coverage) {
  const GoalCoverageDTO record = sample::coverage();
  const auto& [sources, evidenceCount, latestEvidenceAt] = record;
  EXPECT_EQ(&sources, &record.sources);
  EXPECT_EQ(&evidenceCount, &record.evidenceCount);
  EXPECT_EQ(&latestEvidenceAt, &record.latestEvidenceAt);
  static_assert(std::is_same_v<decltype(GoalCoverageDTO::evidenceCount), std::int64_t>);
}

TEST(GoalRecordFieldOrder, Outcome) {
  const GoalOutcomeDTO record = sample::outcome();
  const auto& [id, goalID, subjectKind, subjectRef, value, note, recordedAt, recordedBy,
               correctsOutcomeID] = record;
  EXPECT_EQ(&id, &record.id);
  EXPECT_EQ(&goalID, &record.goalID);
  EXPECT_EQ(&subjectKind, &record.subjectKind);
  EXPECT_EQ(&subjectRef, &record.subjectRef);
  EXPECT_EQ(&value, &record.value);
  EXPECT_EQ(&note, &record.note);
  EXPECT_EQ(&recordedAt, &record.recordedAt);
  EXPECT_EQ(&recordedBy, &record.recordedBy);
  EXPECT_EQ(&correctsOutcomeID, &record.correctsOutcomeID);
}

TEST(GoalRecordFieldOrder, Response) {
  const GetGoalSnapshotResponse record = sample::response();
  const auto& [goal, people, paths, group, coverage, outcomes] = record;
  EXPECT_EQ(&goal, &record.goal);
  EXPECT_EQ(&people, &record.people);
  EXPECT_EQ(&paths, &record.paths);
  EXPECT_EQ(&group, &record.group);
  EXPECT_EQ(&coverage, &record.coverage);
  EXPECT_EQ(&outcomes, &record.outcomes);
}

TEST(GoalRecordFieldOrder, Reason) {
  const GoalWhyDTO::Evidence record{"label", "detail", "reference"};
  const auto& [label, detail, reference] = record;
  EXPECT_EQ(&label, &record.label);
  EXPECT_EQ(&detail, &record.detail);
  EXPECT_EQ(&reference, &record.reference);
  const GoalWhyDTO::SharedActivity activity{2, 3};
  EXPECT_EQ(activity.threadCount, 2);
  EXPECT_EQ(activity.meetingCount, 3);
}

}  // namespace
}  // namespace vemra
