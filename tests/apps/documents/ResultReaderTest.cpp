#include "apps/documents/ResultReader.hpp"
#include "tests/apps/documents/SampleResult.hpp"

#include <gtest/gtest.h>

namespace vemra::documents {
namespace {

using Strings = std::vector<std::string>;

Strings list(const SharedArray<std::string>& array) {
  return {array.begin(), array.end()};
}

GetGoalSnapshotResponse sample() {
  return readResultText(sampleResult, "case.json");
}

/// A document with only the required keys.
const std::string smallest = R"json({"goal": {"id": "", "title": ""}, "people": [], "paths": [],
  "group": [], "coverage": {"sources": [], "evidenceCount": 0}, "outcomes": []})json";

TEST(ResultReaderTest, ReadsTheGoal) {
  const GoalDTO goal = sample().goal;
  EXPECT_EQ(goal.id, "g1");
  EXPECT_EQ(goal.title, "Find a design lead");
  EXPECT_EQ(goal.status, GoalStatus::paused);
  EXPECT_EQ(goal.targetPersonRef, "p9");
  EXPECT_EQ(goal.createdAt, "2024-12-01T08:00:00Z");
  EXPECT_EQ(goal.updatedAt, "2025-01-02T08:00:00Z");
  EXPECT_EQ(goal.priority, GoalPriority::high);
  EXPECT_EQ(list(goal.keywords), (Strings{"design", "lead"}));
  EXPECT_EQ(goal.keywordsRevision, 3);
  EXPECT_EQ(list(goal.constraints), (Strings{"remote"}));
  EXPECT_EQ(goal.constraintsRevision, 4);
  EXPECT_EQ(list(goal.attachmentRefs), (Strings{"a1"}));
}

TEST(ResultReaderTest, ReadsPeopleAndEveryReason) {
  const auto people = sample().people;
  ASSERT_EQ(people.size(), 4U);
  EXPECT_EQ(people[0].personRef, "p1");
  EXPECT_EQ(people[0].displayName, "Ada");
  EXPECT_EQ(people[0].why, GoalWhyDTO::connection(2));
  EXPECT_EQ(list(people[0].evidenceIDs), (Strings{"ev9", "ev3"}));
  EXPECT_EQ(people[0].topEvidenceID(), "ev9");
  EXPECT_EQ(people[1].why, GoalWhyDTO::evidence("Email", "Asked", "ev1"));
  EXPECT_EQ(people[2].why, GoalWhyDTO::sharedActivity(5, -1));
  EXPECT_EQ(people[3].why, GoalWhyDTO::nameMatch());
}

TEST(ResultReaderTest, KeepsNilApartFromTheEmptyString) {
  const auto people = sample().people;
  EXPECT_EQ(people[1].displayName, std::nullopt) << "null";
  EXPECT_EQ(people[2].displayName, std::nullopt) << "absent";
  EXPECT_EQ(people[3].displayName, "");
  const auto outcomes = sample().outcomes;
  EXPECT_EQ(outcomes[0].correctsOutcomeID, std::nullopt);
  EXPECT_EQ(outcomes[1].correctsOutcomeID, "");
}

TEST(ResultReaderTest, ReadsNoTopEvidenceWithoutEvidence) {
  const auto people = sample().people;
  EXPECT_EQ(people[1].topEvidenceID(), std::nullopt) << "absent";
  EXPECT_EQ(people[3].topEvidenceID(), std::nullopt) << "an empty list";
  const auto withEmptyID =
      readResultText(replacing(sampleResult, "\"ev9\", \"ev3\"", "\"\""), "case.json");
  EXPECT_EQ(withEmptyID.people[0].topEvidenceID(), "") << "an id that is empty";
}

TEST(ResultReaderTest, ReadsPathsGroupsAndCoverage) {
  const auto result = sample();
  ASSERT_EQ(result.paths.size(), 1U);
  EXPECT_EQ(list(result.paths[0].personRefs), (Strings{"p1", "p9"}));
  EXPECT_EQ(result.paths[0].why, GoalWhyDTO::generic());
  EXPECT_EQ(result.paths[0].strength, 7);
  ASSERT_EQ(result.group.size(), 1U);
  EXPECT_EQ(result.group[0].id, "grp1");
  EXPECT_EQ(list(result.group[0].personRefs), (Strings{"p1"}));
  EXPECT_EQ(list(result.coverage.sources), (Strings{"Mail"}));
  EXPECT_EQ(result.coverage.evidenceCount, 12);
  EXPECT_EQ(result.coverage.latestEvidenceAt, "2025-01-05T10:00:00Z");
}

TEST(ResultReaderTest, ReadsOutcomes) {
  const auto outcomes = sample().outcomes;
  ASSERT_EQ(outcomes.size(), 2U);
  EXPECT_EQ(outcomes[0].id, "o1");
  EXPECT_EQ(outcomes[0].goalID, "g1");
  EXPECT_EQ(outcomes[0].subjectKind, GoalOutcomeSubjectKind::person);
  EXPECT_EQ(outcomes[0].subjectRef, "p1");
  EXPECT_EQ(outcomes[0].value, GoalOutcomeValue::helped);
  EXPECT_EQ(outcomes[0].note, "met");
  EXPECT_EQ(outcomes[0].recordedAt, "2025-01-03T08:00:00Z");
  EXPECT_EQ(outcomes[0].recordedBy, "me");
  EXPECT_EQ(outcomes[1].subjectKind, GoalOutcomeSubjectKind::path);
  EXPECT_EQ(outcomes[1].subjectRef, std::nullopt);
  EXPECT_EQ(outcomes[1].value, GoalOutcomeValue::somethingElse);
  EXPECT_EQ(outcomes[1].note, std::nullopt);
}

TEST(ResultReaderTest, AbsentEngineFieldsHaveTheRecordsDefaults) {
  EXPECT_EQ(readResultText(smallest, "case.json"), GetGoalSnapshotResponse{});
}

TEST(ResultReaderTest, EveryOptionalFieldMayBeNull) {
  const std::string text = R"json({"goal": {"id": "", "title": "", "targetPersonRef": null},
    "people": [{"personRef": "p", "displayName": null, "why": {"kind": "generic"}}], "paths": [],
    "group": [], "coverage": {"sources": [], "evidenceCount": -0, "latestEvidenceAt": null},
    "outcomes": [{"id": "o", "subjectKind": "person", "subjectRef": null, "value": "invited",
      "note": null, "recordedAt": null, "recordedBy": null, "correctsOutcomeID": null}]})json";
  const auto result = readResultText(text, "case.json");
  EXPECT_EQ(result.goal, GoalDTO{});
  EXPECT_EQ(result.people[0].displayName, std::nullopt);
  EXPECT_EQ(result.coverage, GoalCoverageDTO{});
  GoalOutcomeDTO outcome;
  outcome.id = "o";
  outcome.value = GoalOutcomeValue::invited;
  EXPECT_EQ(result.outcomes[0], outcome);
}

TEST(ResultReaderTest, EveryOptionalFieldMayBeEmpty) {
  const std::string text = R"json({"goal": {"id": "", "title": "", "targetPersonRef": ""},
    "people": [{"personRef": "p", "displayName": "", "why": {"kind": "generic"}}], "paths": [],
    "group": [], "coverage": {"sources": [""], "evidenceCount": 1, "latestEvidenceAt": ""},
    "outcomes": [{"id": "", "subjectKind": "path", "subjectRef": "", "value": "invited",
      "note": "", "recordedAt": "", "recordedBy": "", "correctsOutcomeID": ""}]})json";
  const auto result = readResultText(text, "case.json");
  EXPECT_EQ(result.goal.targetPersonRef, "");
  EXPECT_EQ(result.people[0].displayName, "");
  EXPECT_EQ(result.coverage.latestEvidenceAt, "");
  const GoalOutcomeDTO& outcome = result.outcomes[0];
  for (const auto& field : {outcome.subjectRef, outcome.note, outcome.recordedAt,
                            outcome.recordedBy, outcome.correctsOutcomeID}) {
    EXPECT_EQ(field, "");
  }
}

TEST(ResultReaderTest, KeysMayComeInAnyOrder) {
  const auto why = [](const std::string& json) {
    const std::string text =
        replacing(sampleResult, R"({"kind": "connection", "hopCount": 2})", json);
    return readResultText(text, "case.json").people[0].why;
  };
  EXPECT_EQ(why(R"({"hopCount": 2, "kind": "connection"})"), GoalWhyDTO::connection(2));
  EXPECT_EQ(why(R"({"reference": "r", "detail": "d", "kind": "evidence", "label": "l"})"),
            GoalWhyDTO::evidence("l", "d", "r"));
  const auto reversed = readResultText(
      R"json({"outcomes": [], "coverage": {"evidenceCount": 0, "sources": []}, "group": [],
              "paths": [], "people": [], "goal": {"title": "", "id": ""}})json",
      "case.json");
  EXPECT_EQ(reversed, GetGoalSnapshotResponse{});
}

TEST(ResultReaderTest, ReadsEveryEnumerationName) {
  for (GoalOutcomeValue value : allGoalOutcomeValues) {
    const std::string name = '"' + std::string(caseName(value)) + '"';
    const auto text = replacing(sampleResult, "\"helped\"", name);
    EXPECT_EQ(readResultText(text, "t").outcomes[0].value, value) << name;
  }
  const std::pair<const char*, GoalStatus> statuses[] = {{"active", GoalStatus::active},
                                                         {"paused", GoalStatus::paused},
                                                         {"reached", GoalStatus::reached},
                                                         {"abandoned", GoalStatus::abandoned}};
  for (const auto& [name, status] : statuses) {
    EXPECT_EQ(readResultText(replacing(sampleResult, "paused", name), "t").goal.status, status);
  }
  const std::pair<const char*, GoalPriority> priorities[] = {
      {"normal", GoalPriority::normal}, {"high", GoalPriority::high}, {"low", GoalPriority::low}};
  for (const auto& [name, priority] : priorities) {
    EXPECT_EQ(readResultText(replacing(sampleResult, "high", name), "t").goal.priority, priority);
  }
}

TEST(ResultReaderTest, ReadsCountsAtTheEndsOfTheRange) {
  const auto hopCount = [](const std::string& number) {
    const std::string text = replacing(sampleResult, "\"hopCount\": 2", "\"hopCount\": " + number);
    return readResultText(text, "case.json").people[0].why;
  };
  EXPECT_EQ(hopCount("9223372036854775807"), GoalWhyDTO::connection(INT64_MAX));
  EXPECT_EQ(hopCount("-9223372036854775808"), GoalWhyDTO::connection(INT64_MIN));
  EXPECT_EQ(hopCount("-0"), GoalWhyDTO::connection(0));
}

TEST(ResultReaderTest, KeepsEveryByteOfAString) {
  const std::string long100k(100'000, 'n');
  for (const std::string& title :
       {std::string("e\u0301"), std::string("\u00E9"), std::string(" <b>&amp;</b> "), long100k,
        std::string("שלום 👩‍👩‍👧 \u202E")}) {
    const auto text = replacing(sampleResult, "Find a design lead", title);
    EXPECT_EQ(readResultText(text, "case.json").goal.title, title);
  }
}

TEST(ResultReaderTest, KeepsPeopleWithEqualReferences) {
  const auto text = replacing(sampleResult, "\"personRef\": \"p2\"", "\"personRef\": \"p1\"");
  const auto people = readResultText(text, "case.json").people;
  EXPECT_EQ(people.size(), 4U);
  EXPECT_EQ(people[1].personRef, "p1");
}

// The reader estimates the length of a list from its beginning; with any continuation, nothing is
// lost.
TEST(ResultReaderTest, KeepsEveryElementOfALongListWhoseLengthCannotBeGuessed) {
  constexpr std::size_t half = 150'000;
  for (const std::size_t firstLength : {std::size_t{0}, std::size_t{200}}) {
    Strings sources(2 * half);
    for (std::size_t i = 0; i < sources.size(); ++i) {
      const std::size_t length = i < half ? firstLength : 200 - firstLength;
      sources[i] = std::to_string(i) + std::string(length, 'x');
    }
    std::string elements;
    for (const std::string& source : sources) {
      elements += (elements.empty() ? "\"" : ",\"") + source + '"';
    }
    const auto text = replacing(sampleResult, "[\"Mail\"]", "[" + elements + "]");
    EXPECT_TRUE(list(readResultText(text, "case.json").coverage.sources) == sources)
        << "beginning with " << firstLength << " bytes each";
  }
}

}  // namespace
}  // namespace vemra::documents
