#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/AtCommit.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"
#include "tests/apps/desk/store/StoreSteps.hpp"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {
/// A store keeps the result that it read last, and never returns it when the file has changed.
class KeptResultTest : public StoreFile {
 protected:
  KeptResultTest() {
    auto one = goal("g1", "One", {outcome("o1", "p1", GoalOutcomeValue::helped)});
    one.paths = {{{"p1", "p2"}, GoalWhyDTO::connection(2), 7}};
    one.group = {{"a group", {"p1"}}};
    store.import({one, goal("g2", "Two")});
  }

  GoalOutcomeDTO record(const std::string& goalID, const std::string& note = "a note") {
    return store.record(goalID, {GoalOutcomeSubjectKind::person, "p1", GoalOutcomeValue::invited,
                                 note, std::nullopt});
  }

  RecordedOutcome recordAndShow(const std::string& goalID) {
    return store.recordAndShow(goalID,
                               {GoalOutcomeSubjectKind::person, "p1", GoalOutcomeValue::invited,
                                std::nullopt, std::nullopt},
                               newOutcomeID(), now());
  }

  GetGoalSnapshotResponse inTheFile(const std::string& goalID) const {
    return GoalStore::open(file).result(goalID);
  }

  GoalStore store = GoalStore::open(file);
};

TEST_F(KeptResultTest, AResultThatDidNotChangeSharesEveryList) {
  const auto before = store.result("g1");
  const auto after = store.result("g1");
  EXPECT_EQ(before, after);
  EXPECT_TRUE(after.people.sharesStorage(before.people));
  EXPECT_TRUE(after.paths.sharesStorage(before.paths));
  EXPECT_TRUE(after.group.sharesStorage(before.group));
  EXPECT_TRUE(after.outcomes.sharesStorage(before.outcomes));
}

TEST_F(KeptResultTest, ARecordedOutcomeCopiesNoPersonAndNoOutcome) {
  const auto before = store.result("g1");
  const auto recorded = record("g1");
  const auto after = store.result("g1");
  EXPECT_TRUE(after.people.sharesStorage(before.people));
  EXPECT_TRUE(after.paths.sharesStorage(before.paths));
  EXPECT_TRUE(after.group.sharesStorage(before.group));
  EXPECT_EQ(after.outcomes.data(), before.outcomes.data());
  ASSERT_EQ(after.outcomes.size(), 2u);
  EXPECT_EQ(after.outcomes.back(), recorded);
  EXPECT_EQ(before.outcomes.size(), 1u);
  EXPECT_EQ(after, inTheFile("g1"));
}

TEST_F(KeptResultTest, RecordingAnOutcomeReturnsTheResultThatTheNextLoadReads) {
  const auto before = store.shownResult("g1");
  const auto recorded = recordAndShow("g1");
  ASSERT_TRUE(recorded.result);
  EXPECT_TRUE(recorded.result->people.sharesStorage(before.people));
  EXPECT_EQ(recorded.result->outcomes.back(), recorded.record);
  EXPECT_EQ(*recorded.result, store.shownResult("g1"));
  EXPECT_EQ(*recorded.result, inTheFile("g1"));
}

TEST_F(KeptResultTest, RecordingAnOutcomeReturnsNoResultThatIsNotKept) {
  EXPECT_FALSE(recordAndShow("g1").result) << "nothing has been read";
  store.shownResult("g1");
  EXPECT_FALSE(recordAndShow("g2").result) << "another goal is kept";
  GoalStore::open(file).import({goal("g1", "Another")});
  EXPECT_FALSE(recordAndShow("g1").result) << "another program has changed the goal";
  store.shownResult("g1");
  GoalStore::open(file).record("g1", {GoalOutcomeSubjectKind::path, {}, {}, {}, {}});
  EXPECT_FALSE(recordAndShow("g1").result) << "another program has recorded an outcome";
}

TEST_F(KeptResultTest, ARecordedOutcomeOfAnotherGoalKeepsTheResult) {
  const auto before = store.result("g1");
  record("g2");
  const auto after = store.result("g1");
  EXPECT_TRUE(after.people.sharesStorage(before.people));
  EXPECT_EQ(after, before);
  EXPECT_EQ(store.result("g2").outcomes.size(), 1u);
}

TEST_F(KeptResultTest, ARecordedOutcomeComesOutByteForByte) {
  store.result("g1");
  const std::string note("e\u0301 \u00e9 \0 end", 13);
  record("g1", note);
  EXPECT_TRUE(*store.result("g1").outcomes.back().note == note);
  EXPECT_TRUE(*inTheFile("g1").outcomes.back().note == note);
}

TEST_F(KeptResultTest, AnImportReplacesIt) {
  store.result("g1");
  store.import({goal("g1", "Another")});
  EXPECT_EQ(store.result("g1").goal.title, "Another");
  EXPECT_TRUE(store.result("g1").paths.empty());
}

TEST_F(KeptResultTest, AnImportOfAnotherProgramIsNeverMissed) {
  for (int i = 0; i < 20; ++i) {
    const std::string title = std::to_string(i);
    store.result("g1");
    GoalStore::open(file).import({goal("g1", title)});
    EXPECT_EQ(store.result("g1").goal.title, title);
    record("g1");
    GoalStore::open(file).import({goal("g1", title + " again")});
    EXPECT_EQ(store.result("g1").goal.title, title + " again");
  }
}

TEST_F(KeptResultTest, AnImportOfAnotherProgramBetweenLoadingAndRecordingIsNeverMissed) {
  store.result("g1");
  GoalStore::open(file).import({goal("g1", "Another")});
  record("g1");
  EXPECT_EQ(store.result("g1").goal.title, "Another");
  EXPECT_EQ(store.result("g1"), inTheFile("g1"));
}

TEST_F(KeptResultTest, AnOutcomeOfAnotherProgramIsNeverMissed) {
  GoalStore other = GoalStore::open(file);
  for (std::size_t i = 0; i < 20; ++i) {
    store.result("g1");
    other.record("g1", {GoalOutcomeSubjectKind::path, {}, GoalOutcomeValue::helped, {}, {}});
    if (i % 2 == 0) record("g1");
    EXPECT_EQ(store.result("g1"), inTheFile("g1"));
  }
  EXPECT_EQ(store.result("g1").outcomes.size(), 31u);
}

TEST_F(KeptResultTest, AChangeByAForeignProgramIsNeverMissed) {
  RawDatabase other(file);
  for (const char* sql :
       {"UPDATE people SET display_name = 'Eve' WHERE goal = 1",
        "INSERT INTO person_evidence VALUES (1, 0, 1, 'ev10')",
        "DELETE FROM path_people WHERE goal = 1", "UPDATE paths SET strength = 8",
        "UPDATE groups SET id = 'another'", "UPDATE coverage SET evidence_count = 99",
        "INSERT INTO goal_texts VALUES (1, 'keyword', 0, 'x')",
        "INSERT INTO outcomes SELECT -5, goal, 'o0', goal_id, subject_kind, "
        "subject_ref, value, note, recorded_at, recorded_by, corrects_outcome_id "
        "FROM outcomes",
        "UPDATE goals SET title = 'Eve'", "DELETE FROM person_evidence",
        "INSERT OR REPLACE INTO coverage VALUES (1, 98, NULL)", "DELETE FROM group_people",
        "DELETE FROM groups", "DELETE FROM paths", "DELETE FROM goal_texts",
        "DELETE FROM people"}) {
    const auto before = store.shownResult("g1");
    ASSERT_EQ(other.run(sql), "") << sql;
    const auto after = store.shownResult("g1");
    EXPECT_FALSE(after == before) << sql;
    EXPECT_EQ(after, inTheFile("g1")) << sql;
  }
}

TEST_F(KeptResultTest, AnOutcomeOfAnotherProgramIsReadAlone) {
  const auto before = store.shownResult("g1");
  GoalStore::open(file).record("g1", {GoalOutcomeSubjectKind::path, {}, {}, {}, {}});
  const auto after = store.shownResult("g1");
  EXPECT_TRUE(after.people.sharesStorage(before.people));
  EXPECT_TRUE(after.paths.sharesStorage(before.paths));
  EXPECT_TRUE(after.group.sharesStorage(before.group));
  EXPECT_EQ(after.outcomes.data(), before.outcomes.data());
  EXPECT_EQ(after.outcomes.size(), before.outcomes.size() + 1);
  EXPECT_EQ(after, inTheFile("g1"));
}

TEST_F(KeptResultTest, AChangeOfAnotherGoalByAnotherProgramReadsNoPerson) {
  const auto before = store.shownResult("g1");
  GoalStore::open(file).import({goal("g2", "Another"), goal("g3", "Three")});
  const auto after = store.shownResult("g1");
  EXPECT_TRUE(after.people.sharesStorage(before.people));
  EXPECT_EQ(after, inTheFile("g1"));
}

// The work is counted: it is the same for 3,000 people as for 30.
TEST_F(KeptResultTest, TheWorkAfterAChangeByAnotherProgramDoesNotGrowWithThePeople) {
  std::vector<std::pair<int, int>> work;
  for (const std::size_t people : {30, 3'000}) {
    const std::string one = folder.file(std::to_string(people));
    auto crowd = goal("g1", "One");
    crowd.people = std::vector<GoalPersonCandidateDTO>(people, crowd.people[0]);
    const StoreSteps counted;
    GoalStore watching = GoalStore::open(one);
    watching.import({crowd, goal("g2", "Two")});
    GoalStore other = GoalStore::open(one);
    watching.shownResult("g1");
    other.import({goal("g2", "Another")});
    other.record("g1", {GoalOutcomeSubjectKind::path, {}, {}, {}, {}});
    StoreSteps::start();
    EXPECT_EQ(watching.shownResult("g1").outcomes.size(), 1u);
    work.emplace_back(StoreSteps::rows(), StoreSteps::steps());
  }
  EXPECT_EQ(work[0], work[1]);
  EXPECT_LT(work[0].first, 10) << "rows";
}

TEST_F(KeptResultTest, AChangeWhileATriggerWasMissingIsNeverMissed) {
  store.shownResult("g1");
  RawDatabase other(file);
  const std::string trigger =
      other.value("SELECT sql FROM sqlite_schema WHERE name = 'stamp_people_changed'");
  ASSERT_EQ(other.run("DROP TRIGGER stamp_people_changed; "
                      "UPDATE people SET display_name = 'Eve'; " +
                      trigger),
            "");
  EXPECT_EQ(store.shownResult("g1").people[0].displayName, "Eve");
}

TEST_F(KeptResultTest, AGoalWithoutAStampIsReadAnewAfterAChange) {
  store.shownResult("g1");
  RawDatabase other(file);
  ASSERT_EQ(other.run("DELETE FROM result_stamps"), "");
  ASSERT_EQ(store.shownResult("g1").people[0].displayName, "Ada");
  ASSERT_EQ(other.run("UPDATE people SET display_name = 'Eve'"), "");
  EXPECT_EQ(store.shownResult("g1").people[0].displayName, "Eve");
}

TEST_F(KeptResultTest, AReplacedGoalIsNeverMissed) {
  store.shownResult("g1");
  RawDatabase other(file);
  ASSERT_EQ(other.run("INSERT OR REPLACE INTO goals SELECT number, id, 'Eve', status, "
                      "target_person_ref, created_at, updated_at, priority, keywords_revision, "
                      "constraints_revision FROM goals WHERE number = 1"),
            "");
  EXPECT_EQ(store.shownResult("g1").goal.title, "Eve");
}

TEST_F(KeptResultTest, AnOutcomeWhoseCommitFailsIsNotInIt) {
  bool fails = false;
  const AtCommit watch([&] { return fails ? 1 : 0; });
  GoalStore watched = GoalStore::open(file);
  const auto before = watched.result("g1");
  fails = true;
  EXPECT_NE(errorOf([&] {
              watched.record("g1", {GoalOutcomeSubjectKind::path, {}, {}, {}, {}});
            }),
            "no error");
  fails = false;
  EXPECT_EQ(watched.result("g1"), before);
  watched.record("g1", {GoalOutcomeSubjectKind::path, {}, {}, {}, {}});
  EXPECT_EQ(watched.result("g1"), inTheFile("g1"));
}

TEST_F(KeptResultTest, AnOutcomeRecordedByAnEarlierTryIsInItOnce) {
  store.result("g1");
  const GoalOutcomeRecordingInput input{GoalOutcomeSubjectKind::path, {}, {}, {}, {}};
  store.record("g1", input, "o9");
  store.record("g1", input, "o9");
  EXPECT_EQ(store.result("g1").outcomes.size(), 2u);
}

TEST_F(KeptResultTest, DamageByAnotherProgramIsReported) {
  store.result("g1");
  ASSERT_EQ(RawDatabase(file).run("UPDATE people SET position = 5 WHERE goal = 1"), "");
  EXPECT_NE(errorOf([&] { store.result("g1"); }).find("is damaged: people"), std::string::npos);
}

}  // namespace
}  // namespace vemra::desk
