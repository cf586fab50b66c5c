// Goals and outcomes that are added to a store with damaged rows.

#include "tests/apps/desk/store/DamagedStore.hpp"

namespace vemra::desk {
namespace {

class DamagedStoreImportTest : public DamagedStore {};

TEST_F(DamagedStoreImportTest, ImportingTheGoalAgainRepairsItsResult) {
  for (const char* sql : {"INSERT INTO person_evidence VALUES (1, -1, 0, 'x')",
                          "INSERT INTO path_people VALUES (1, 77, 0, 'x')",
                          "INSERT INTO group_people VALUES (1, 77, 0, 'x')", "DELETE FROM coverage",
                          "INSERT INTO goal_texts VALUES (1, 'rumour', 0, 'x')",
                          "UPDATE people SET position = 7 WHERE position = 2",
                          "UPDATE paths SET position = 8", "UPDATE groups SET position = 9"}) {
    damage(sql);
    EXPECT_NE(errorOfResult(), "no error") << sql;
    GoalStore::open(file).import({rich()});
    EXPECT_EQ(errorOfResult(), "no error") << sql;
  }
}

// Such rows would become part of a new goal with their number. They may be outcomes of a goal whose
// own row is lost, so they stay.
TEST_F(DamagedStoreImportTest, ANewGoalGetsANumberThatNoRowHas) {
  for (const char* sql :
       {"INSERT INTO goal_texts VALUES (2, 'keyword', 9, 'x')",
        "INSERT INTO people (goal, position, person_ref, why_kind) VALUES (2, 9, 'x', 'generic')",
        "INSERT INTO person_evidence VALUES (2, 9, 0, 'x')",
        "INSERT INTO paths (goal, position, strength, why_kind) VALUES (2, 9, 0, 'generic')",
        "INSERT INTO path_people VALUES (2, 9, 0, 'x')", "INSERT INTO groups VALUES (2, 9, 'x')",
        "INSERT INTO group_people VALUES (2, 9, 0, 'x')",
        "INSERT INTO coverage VALUES (2, 0, NULL)",
        "INSERT INTO outcomes VALUES (8, 2, 'o', 'g', 'path', NULL, 'helped', NULL, NULL, NULL, "
        "NULL)"}) {
    damage(sql);
    EXPECT_EQ(errorOf([](GoalStore& store) {
                store.import({goal("new", "t")});
                EXPECT_TRUE(store.outcomes("new").empty());
                EXPECT_EQ(store.result("new"), goal("new", "t"));
              }),
              "no error")
        << sql;
    EXPECT_EQ(RawDatabase(file).value("SELECT number FROM goals WHERE id = 'new'"), "3") << sql;
    startAgain();
  }
}

TEST_F(DamagedStoreImportTest, ALostGoalWithOutcomesDoesNotPreventAddingOtherGoals) {
  damage("DELETE FROM goals");
  EXPECT_EQ(errorOf([](GoalStore& store) {
              store.import({goal("new", "t")});
              store.import({rich()});
              EXPECT_TRUE(store.outcomes("new").empty());
            }),
            "no error");
  EXPECT_EQ(RawDatabase(file).value("SELECT count(*) FROM outcomes WHERE goal = 1"), "1");
}

TEST_F(DamagedStoreImportTest, ARowWithTheHighestNumberIsAnErrorForANewGoal) {
  const auto add = [](GoalStore& store) { store.import({goal("new", "t")}); };
  damage("INSERT INTO coverage VALUES (9223372036854775807, 0, NULL)");
  EXPECT_EQ(errorOf(add),
            "coverage (goal 9223372036854775807): goal: expected a number that leaves one for "
            "another goal; found 9223372036854775807");
  EXPECT_EQ(GoalStore::open(file).goals().size(), 1u);
  startAgain();
  damage("UPDATE goals SET number = 9223372036854775807");
  EXPECT_EQ(errorOf(add).substr(0, 36), "goals (number 9223372036854775807): ");
}

TEST_F(DamagedStoreImportTest, ARowWithTheHighestNumberIsNotReportedAsAFullDisk) {
  const auto record = [](GoalStore& store) {
    store.record("g", {GoalOutcomeSubjectKind::person, "p1", {}, {}, {}});
  };
  damage("UPDATE sqlite_sequence SET seq = 9223372036854775806 WHERE name = 'outcomes'");
  EXPECT_EQ(errorOf(record), "no error") << "there is one number left";
  EXPECT_EQ(errorOf(record),
            "sqlite_sequence (name \"outcomes\"): seq: expected a number that leaves one for "
            "another outcome; found 9223372036854775807");
  GetGoalSnapshotResponse result = rich();
  EXPECT_EQ(errorOf([&](GoalStore& store) { store.import({result}); }), "no error")
      << "without a new outcome";
  result.outcomes = {outcome("o2", "p1", GoalOutcomeValue::helped)};
  EXPECT_EQ(errorOf([&](GoalStore& store) { store.import({result}); }).substr(0, 15),
            "sqlite_sequence");
  startAgain();
  damage("UPDATE sqlite_sequence SET seq = 9223372036854775806 WHERE name = 'outcomes'");
  result.outcomes = {outcome("o2", "p1", {}), outcome("o3", "p1", {})};
  EXPECT_EQ(errorOf([&](GoalStore& store) { store.import({result}); }).substr(0, 15),
            "sqlite_sequence")
      << "in the middle of an import";
  startAgain();
  damage(
      "INSERT INTO outcomes VALUES (9223372036854775807, 1, 'o', 'g', 'path', NULL, 'helped', "
      "NULL, NULL, NULL, NULL); UPDATE sqlite_sequence SET seq = 1");
  EXPECT_EQ(errorOf(record).substr(0, 39), "outcomes (number 9223372036854775807): ");
}

}  // namespace
}  // namespace vemra::desk
