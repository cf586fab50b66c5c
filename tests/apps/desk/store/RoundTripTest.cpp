#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/ResultFault.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"
#include "tests/apps/documents/RandomResult.hpp"

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

using StoreRoundTrip = StoreFile;

// Documents are compared as text, byte for byte; records would compare canonically.
TEST_F(StoreRoundTrip, AnImportedResultIsReadBackUnchanged) {
  GoalStore store = GoalStore::open(file);
  documents::RandomResult random(20250105);
  std::vector<GetGoalSnapshotResponse> results;
  for (int i = 0; i < 400; ++i) {
    do {
      results.resize(static_cast<std::size_t>(i));
      results.push_back(random.result());
    } while (faultIn(results.back()));
    results.back().goal.id += "#" + std::to_string(i);
  }
  store.import(results);
  for (const auto& result : results) {
    ASSERT_EQ(documents::writeResult(store.result(result.goal.id)), documents::writeResult(result));
  }
}

TEST_F(StoreRoundTrip, SurvivesClosingAndOpening) {
  GetGoalSnapshotResponse result = documents::RandomResult(7).result();
  result.goal.id = "g";
  GoalStore::open(file).import({result});
  EXPECT_EQ(documents::writeResult(GoalStore::open(file).result("g")),
            documents::writeResult(result));
}

TEST_F(StoreRoundTrip, KeepsEveryByteOfEveryText) {
  GoalStore store = GoalStore::open(file);
  using namespace std::string_literals;
  const std::string texts[] = {""s,
                               "\0"s,
                               "a\0b"s,
                               "\0\0"s,
                               "e\u0301 and \u00E9"s,
                               "'; DROP TABLE goals; --"s,
                               " \t\r\n "s,
                               "<b>&amp;"s,
                               std::string(100'000, 'x')};
  for (const std::string& text : texts) {
    GetGoalSnapshotResponse result = goal("g", text);
    result.goal.keywords = {text, text};
    result.people = {{text, text, GoalWhyDTO::evidence(text, text, text), {text}}};
    result.paths = {{{text, "x", text}, GoalWhyDTO::generic(), 0}};
    result.coverage.latestEvidenceAt = text;
    store.import({result});
    const GetGoalSnapshotResponse read = store.result("g");
    EXPECT_TRUE(read.goal.title == text);
    EXPECT_TRUE(read.goal.keywords[1] == text);
    EXPECT_TRUE(read.people[0].personRef == text);
    EXPECT_TRUE(read.people[0].displayName == text);
    EXPECT_TRUE(read.people[0].evidenceIDs[0] == text);
    EXPECT_TRUE(std::get<GoalWhyDTO::Evidence>(read.people[0].why.reason).detail == text);
    EXPECT_TRUE(read.paths[0].personRefs[2] == text);
    EXPECT_TRUE(read.coverage.latestEvidenceAt == text);
  }
}

TEST_F(StoreRoundTrip, FindsAGoalByAnyBytesOfItsId) {
  GoalStore store = GoalStore::open(file);
  using namespace std::string_literals;
  for (const std::string& id : {""s, "\0"s, "a\0b"s, "a\0c"s, "a"s, "\u00FF"s, "\u00FE"s}) {
    store.import({goal(id, "title of " + id)});
  }
  EXPECT_EQ(store.goals().size(), 7u) << "ids that differ in a byte must be different goals";
  for (const std::string& id : {""s, "\0"s, "a\0b"s, "a\0c"s, "a"s, "\u00FF"s, "\u00FE"s}) {
    EXPECT_TRUE(store.result(id).goal.title == "title of " + id);
  }
}

TEST_F(StoreRoundTrip, DistinguishesNilFromEmpty) {
  GoalStore store = GoalStore::open(file);
  GetGoalSnapshotResponse result = goal("g", "t");
  GoalOutcomeDTO bare = outcome("o1", "", GoalOutcomeValue::helped);
  bare.subjectRef = std::nullopt;
  GoalOutcomeDTO empty = outcome("o2", "", GoalOutcomeValue::helped);
  empty.note = empty.recordedAt = empty.recordedBy = empty.correctsOutcomeID = "";
  result.outcomes = {bare, empty};
  result.people = {{"p1", std::nullopt, {}, {}}, {"p2", "", {}, {}}};
  result.goal.targetPersonRef = "";
  store.import({result});
  const GetGoalSnapshotResponse read = store.result("g");
  EXPECT_EQ(read, result);
  EXPECT_FALSE(read.outcomes[0].subjectRef || read.outcomes[0].note ||
               read.outcomes[0].correctsOutcomeID);
  EXPECT_TRUE(read.outcomes[1].subjectRef && read.outcomes[1].note &&
              read.outcomes[1].correctsOutcomeID);
}

TEST_F(StoreRoundTrip, KeepsTheOrderAndPeopleWithEqualReferences) {
  GoalStore store = GoalStore::open(file);
  GetGoalSnapshotResponse result = goal("g", "t");
  std::vector<GoalPersonCandidateDTO> people;
  for (int i = 0; i < 300; ++i) {
    people.push_back({"p" + std::to_string(i % 7), std::to_string(i), {}, {"b", "a", "b"}});
  }
  result.people = people;
  store.import({result});
  EXPECT_EQ(store.result("g").people, result.people);
}

}  // namespace
}  // namespace vemra::desk
