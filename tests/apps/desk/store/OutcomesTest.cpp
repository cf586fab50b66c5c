#include "VemraPlatform/date/InternetDateTime.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <ctime>
#include <set>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {
class OutcomesTest : public StoreFile {
 protected:
  OutcomesTest() { store.import({goal("g1", "t")}); }

  GoalStore store = GoalStore::open(file);
};

TEST_F(OutcomesTest, ARecordContainsTheScreensValues) {
  const auto returned = store.record(
      "g1", {GoalOutcomeSubjectKind::path, "p9", GoalOutcomeValue::introduced, "a\n\"b\"", "o7"});
  const auto recorded = store.outcomes("g1");
  ASSERT_EQ(recorded.size(), 1u);
  EXPECT_EQ(recorded[0], returned);
  EXPECT_EQ(recorded[0].goalID, "g1");
  EXPECT_EQ(recorded[0].subjectKind, GoalOutcomeSubjectKind::path);
  EXPECT_EQ(recorded[0].subjectRef, "p9");
  EXPECT_EQ(recorded[0].value, GoalOutcomeValue::introduced);
  EXPECT_EQ(recorded[0].note, "a\n\"b\"");
  EXPECT_EQ(recorded[0].correctsOutcomeID, "o7");
  ASSERT_TRUE(recorded[0].recordedAt);
  const auto instant = date::parseInternetDateTime(*recorded[0].recordedAt);
  ASSERT_TRUE(instant) << *recorded[0].recordedAt;
  EXPECT_NEAR(static_cast<double>(instant->secondsSinceEpoch),
              static_cast<double>(std::time(nullptr)), 5);
}

TEST_F(OutcomesTest, HaveTheGoalsIdAsTheStoreHasIt) {
  store.import({goal("e\u0301", "t")});
  const auto composed = store.record("\u00E9", {GoalOutcomeSubjectKind::path, {}, {}, {}, {}});
  EXPECT_TRUE(composed.goalID == "e\u0301") << composed.goalID;
}

TEST_F(OutcomesTest, OfSomeIdsThoseAreStoredThatAnOutcomeOfTheGoalHas) {
  store.import({goal("g2", "t")});
  const GoalOutcomeRecordingInput input{GoalOutcomeSubjectKind::path, {}, {}, {}, {}};
  for (const char* id : {"a", "b", "c"}) store.record("g1", input, id);
  store.record("g2", input, "d");
  EXPECT_EQ(store.storedOutcomes("g1", {"c", "x", "d", "a"}), (std::vector<std::string>{"c", "a"}));
  EXPECT_TRUE(store.storedOutcomes("g1", {}).empty());
  EXPECT_TRUE(store.storedOutcomes("unknown", {"a"}).empty());
}

TEST_F(OutcomesTest, KeepsNilNil) {
  store.record("g1", {GoalOutcomeSubjectKind::path, {}, GoalOutcomeValue::helped, {}, {}});
  const auto recorded = store.outcomes("g1")[0];
  EXPECT_FALSE(recorded.subjectRef || recorded.note || recorded.correctsOutcomeID);
}

TEST_F(OutcomesTest, EveryKindAndValueCanBeRecorded) {
  for (const auto kind : {GoalOutcomeSubjectKind::person, GoalOutcomeSubjectKind::path}) {
    for (const auto value : allGoalOutcomeValues) store.record("g1", {kind, "p", value, {}, {}});
  }
  const auto recorded = store.outcomes("g1");
  ASSERT_EQ(recorded.size(), 16u);
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(recorded[i].value, allGoalOutcomeValues[i % 8]);
}

TEST_F(OutcomesTest, AreInTheOrderOfRecordingWithIdsOfTheirOwn) {
  std::vector<std::string> ids;
  for (int i = 0; i < 200; ++i) {
    ids.push_back(store
                      .record("g1", {GoalOutcomeSubjectKind::person,
                                     "p1",
                                     GoalOutcomeValue::helped,
                                     std::to_string(i),
                                     {}})
                      .id);
  }
  EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), 200u);
  const auto recorded = store.outcomes("g1");
  ASSERT_EQ(recorded.size(), 200u);
  for (std::size_t i = 0; i < 200; ++i) EXPECT_EQ(recorded[i].note, std::to_string(i));
}

TEST_F(OutcomesTest, AnIdHas128RandomBitsInHexadecimalDigits) {
  std::set<char> seen[32];
  for (int i = 0; i < 300; ++i) {
    const std::string id =
        store.record("g1", {GoalOutcomeSubjectKind::person, {}, GoalOutcomeValue::reachedOut}).id;
    ASSERT_EQ(id.substr(0, 8), "outcome-");
    ASSERT_EQ(id.size(), 40u) << id;
    for (std::size_t digit = 0; digit < 32; ++digit) seen[digit].insert(id[8 + digit]);
  }
  for (const auto& digits : seen) {
    EXPECT_EQ(std::string(digits.begin(), digits.end()), "0123456789abcdef");
  }
}

TEST_F(OutcomesTest, OfAMissingGoalAreAnError) {
  EXPECT_THROW(store.outcomes("nope"), UnknownGoal);
  EXPECT_THROW(store.result("nope"), UnknownGoal);
  EXPECT_THROW(
      store.record("nope", {GoalOutcomeSubjectKind::person, "p", GoalOutcomeValue::helped, {}, {}}),
      UnknownGoal);
}

// The database itself protects recorded outcomes, also from other programs.
TEST_F(OutcomesTest, CannotBeRewrittenRemovedOrReplaced) {
  store.import({goal("g1", "t", {outcome("o1", "p1", GoalOutcomeValue::helped)})});
  RawDatabase other(file);
  EXPECT_NE(other.run("UPDATE outcomes SET note = 'changed'"), "");
  EXPECT_NE(other.run("UPDATE outcomes SET value = 'helped' WHERE id = 'o1'"), "");
  EXPECT_NE(other.run("DELETE FROM outcomes"), "");
  EXPECT_NE(other.run("INSERT OR REPLACE INTO outcomes SELECT number, goal, id, goal_id, "
                      "subject_kind, subject_ref, 'invited', note, recorded_at, recorded_by, "
                      "corrects_outcome_id FROM outcomes"),
            "");
  EXPECT_NE(other.run("PRAGMA foreign_keys = ON; DELETE FROM goals"), "");
  const auto recorded = store.outcomes("g1");
  ASSERT_EQ(recorded.size(), 1u);
  EXPECT_EQ(recorded[0], outcome("o1", "p1", GoalOutcomeValue::helped));
}

TEST_F(OutcomesTest, OfAnUnknownKindOrValueAreRefusedByTheTables) {
  RawDatabase other(file);
  const std::string insert = "INSERT INTO outcomes (goal, id, goal_id, subject_kind, value) ";
  EXPECT_NE(other.run(insert + "VALUES (1, 'o', '', 'dog', 'helped')"), "");
  EXPECT_NE(other.run(insert + "VALUES (1, 'o', '', 'person', 'barked')"), "");
  EXPECT_NE(
      other.run("PRAGMA foreign_keys = ON; " + insert + "VALUES (99, 'o', '', 'person', 'helped')"),
      "");
  EXPECT_EQ(other.run(insert + "VALUES (1, 'o', '', 'person', 'helped')"), "");
}

}  // namespace
}  // namespace vemra::desk
