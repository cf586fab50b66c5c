#include "VemraGoalEngine/GoalRecords.hpp"
#include "tests/VemraGoalEngine/EqualityLaw.hpp"
#include "tests/VemraGoalEngine/SampleRecords.hpp"

#include <gtest/gtest.h>

namespace vemra {
namespace {

using testing::expectEachChangeToMatter;

TEST(GoalRecordEquality, EveryFieldOfAGoalTakesPart) {
  expectEachChangeToMatter<GoalDTO>(
      [] { return sample::goal(); },
      {
          {"id", [](GoalDTO& goal) { goal.id += "!"; }},
          {"title", [](GoalDTO& goal) { goal.title += "!"; }},
          {"status", [](GoalDTO& goal) { goal.status = GoalStatus::active; }},
          {"targetPersonRef", [](GoalDTO& goal) { *goal.targetPersonRef += "!"; }},
          {"targetPersonRef, absent", [](GoalDTO& goal) { goal.targetPersonRef.reset(); }},
          {"createdAt", [](GoalDTO& goal) { goal.createdAt += "!"; }},
          {"updatedAt", [](GoalDTO& goal) { goal.updatedAt += "!"; }},
          {"priority", [](GoalDTO& goal) { goal.priority = GoalPriority::low; }},
          {"keywords",
           [](GoalDTO& goal) {
             goal.keywords = {"launch", "café"};
           }},
          {"keywordsRevision", [](GoalDTO& goal) { ++goal.keywordsRevision; }},
          {"constraints", [](GoalDTO& goal) { goal.constraints = {}; }},
          {"constraintsRevision", [](GoalDTO& goal) { --goal.constraintsRevision; }},
          {"attachmentRefs", [](GoalDTO& goal) { goal.attachmentRefs = {"other"}; }},
      });
}

TEST(GoalRecordEquality, EveryFieldOfAPersonTakesPart) {
  using Person = GoalPersonCandidateDTO;
  expectEachChangeToMatter<Person>(
      [] { return sample::person(); },
      {
          {"personRef", [](Person& person) { person.personRef += "!"; }},
          {"displayName", [](Person& person) { *person.displayName += "!"; }},
          {"displayName, absent", [](Person& person) { person.displayName.reset(); }},
          {"why", [](Person& person) { person.why = GoalWhyDTO::nameMatch(); }},
          {"evidenceIDs", [](Person& person) { person.evidenceIDs = {"evidence-1"}; }},
      });
}

TEST(GoalRecordEquality, EveryFieldOfAPathTakesPart) {
  using Path = GoalPathCandidateDTO;
  expectEachChangeToMatter<Path>(
      [] { return sample::path(); },
      {
          {"personRefs",
           [](Path& path) {
             path.personRefs = {"anna", "bo", "cy"};
           }},
          {"why", [](Path& path) { path.why = GoalWhyDTO::connection(3); }},
          {"strength", [](Path& path) { path.strength = -40; }},
      });
}

TEST(GoalRecordEquality, EveryFieldOfAGroupTakesPart) {
  using Group = GoalGroupCandidateDTO;
  expectEachChangeToMatter<Group>([] { return sample::group(); },
                                  {
                                      {"id", [](Group& group) { group.id += "!"; }},
                                      {"personRefs",
                                       [](Group& group) {
                                         group.personRefs = {"bo", "anna"};
                                       }},
                                  });
}

TEST(GoalRecordEquality, EveryFieldOfACoverageTakesPart) {
  using Coverage = GoalCoverageDTO;
  expectEachChangeToMatter<Coverage>(
      [] { return sample::coverage(); },
      {
          {"sources", [](Coverage& coverage) { coverage.sources = {"Mail"}; }},
          {"evidenceCount", [](Coverage& coverage) { coverage.evidenceCount = -12; }},
          {"latestEvidenceAt", [](Coverage& coverage) { *coverage.latestEvidenceAt += "!"; }},
          {"latestEvidenceAt, absent",
           [](Coverage& coverage) { coverage.latestEvidenceAt.reset(); }},
      });
}

TEST(GoalRecordEquality, EveryFieldOfAnOutcomeTakesPart) {
  using Outcome = GoalOutcomeDTO;
  expectEachChangeToMatter<Outcome>(
      [] { return sample::outcome(); },
      {
          {"id", [](Outcome& outcome) { outcome.id += "!"; }},
          {"goalID", [](Outcome& outcome) { outcome.goalID += "!"; }},
          {"subjectKind",
           [](Outcome& outcome) { outcome.subjectKind = GoalOutcomeSubjectKind::person; }},
          {"subjectRef", [](Outcome& outcome) { *outcome.subjectRef += "!"; }},
          {"subjectRef, absent", [](Outcome& outcome) { outcome.subjectRef.reset(); }},
          {"value", [](Outcome& outcome) { outcome.value = GoalOutcomeValue::introduced; }},
          {"note", [](Outcome& outcome) { *outcome.note += "!"; }},
          {"note, absent", [](Outcome& outcome) { outcome.note.reset(); }},
          {"recordedAt", [](Outcome& outcome) { *outcome.recordedAt += "!"; }},
          {"recordedAt, absent", [](Outcome& outcome) { outcome.recordedAt.reset(); }},
          {"recordedBy", [](Outcome& outcome) { *outcome.recordedBy += "!"; }},
          {"recordedBy, absent", [](Outcome& outcome) { outcome.recordedBy.reset(); }},
          {"correctsOutcomeID", [](Outcome& outcome) { *outcome.correctsOutcomeID += "!"; }},
          {"correctsOutcomeID, absent",
           [](Outcome& outcome) { outcome.correctsOutcomeID.reset(); }},
      });
}

TEST(GoalRecordEquality, EveryFieldOfAResponseTakesPart) {
  using Response = GetGoalSnapshotResponse;
  expectEachChangeToMatter<Response>(
      [] { return sample::response(); },
      {
          {"goal", [](Response& response) { response.goal.keywordsRevision = 99; }},
          {"people", [](Response& response) { response.people = {}; }},
          {"paths", [](Response& response) { response.paths = {}; }},
          {"group", [](Response& response) { response.group = {}; }},
          {"coverage", [](Response& response) { response.coverage.evidenceCount = 0; }},
          {"outcomes", [](Response& response) { response.outcomes = {}; }},
      });
}

// Every string of the sample holds the letter in question, so one field compared byte for byte
// would make its record unequal.
TEST(GoalRecordEquality, StringsInAnotherNormalFormAreEqualInEveryField) {
  EXPECT_TRUE(sample::goal(sample::composed) == sample::goal(sample::decomposed));
  EXPECT_TRUE(sample::person(sample::composed) == sample::person(sample::decomposed));
  EXPECT_TRUE(sample::path(sample::composed) == sample::path(sample::decomposed));
  EXPECT_TRUE(sample::group(sample::composed) == sample::group(sample::decomposed));
  EXPECT_TRUE(sample::coverage(sample::composed) == sample::coverage(sample::decomposed));
  EXPECT_TRUE(sample::outcome(sample::composed) == sample::outcome(sample::decomposed));
  EXPECT_TRUE(sample::response(sample::composed) == sample::response(sample::decomposed));
}

TEST(GoalRecordEquality, AnAbsentStringIsNotAnEmptyOne) {
  GoalOutcomeDTO absent = sample::outcome();
  absent.correctsOutcomeID.reset();
  GoalOutcomeDTO empty = sample::outcome();
  empty.correctsOutcomeID = "";
  EXPECT_FALSE(absent == empty);
  EXPECT_TRUE(empty.correctsOutcomeID.has_value()) << "\"\" marks a correction";
  EXPECT_FALSE(absent.correctsOutcomeID.has_value());

  GoalDTO nobody = sample::goal();
  nobody.targetPersonRef.reset();
  GoalDTO nameless = sample::goal();
  nameless.targetPersonRef = "";
  EXPECT_FALSE(nobody == nameless);

  GoalPersonCandidateDTO unnamed = sample::person();
  unnamed.displayName.reset();
  GoalPersonCandidateDTO blank = sample::person();
  blank.displayName = "";
  EXPECT_FALSE(unnamed == blank);

  GoalCoverageDTO untimed = sample::coverage();
  untimed.latestEvidenceAt.reset();
  GoalCoverageDTO emptyTime = sample::coverage();
  emptyTime.latestEvidenceAt = "";
  EXPECT_FALSE(untimed == emptyTime);
}

TEST(GoalRecordEquality, CaseAndCompatibilityFormsMatter) {
  GoalPersonCandidateDTO lower = sample::person();
  lower.personRef = "fi";
  GoalPersonCandidateDTO upper = sample::person();
  upper.personRef = "FI";
  GoalPersonCandidateDTO ligature = sample::person();
  ligature.personRef = "\ufb01";
  EXPECT_FALSE(lower == upper);
  EXPECT_FALSE(lower == ligature);
}

TEST(GoalPersonCandidate, TheTopEvidenceIsTheFirst) {
  GoalPersonCandidateDTO person = sample::person();
  person.evidenceIDs = {"strongest", "weaker"};
  EXPECT_EQ(person.topEvidenceID(), "strongest");
  person.evidenceIDs = {""};
  EXPECT_EQ(person.topEvidenceID(), "") << "an empty id is an id";
  person.evidenceIDs = {};
  EXPECT_EQ(person.topEvidenceID(), std::nullopt);
}

}  // namespace
}  // namespace vemra
