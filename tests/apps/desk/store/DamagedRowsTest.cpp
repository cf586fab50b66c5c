#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/desk/store/DamagedStore.hpp"

namespace vemra::desk {
namespace {

struct Damage {
  const char* sql;
  const char* error;
};

class DamagedRowsTest : public DamagedStore {
 protected:
  void expectErrorsOfResult(std::initializer_list<Damage> damages) {
    for (const auto& [sql, error] : damages) {
      damage(sql);
      EXPECT_EQ(errorOfResult(), error) << sql;
      startAgain();
    }
  }
};

TEST_F(DamagedRowsTest, AnUndamagedStoreHasNoError) {
  EXPECT_EQ(errorOfResult(), "no error");
  EXPECT_EQ(documents::writeResult(GoalStore::open(file).result("g")),
            documents::writeResult(rich()));
}

// The number of an owner is not an index into a list: it may have any value.
TEST_F(DamagedRowsTest, ARowWithoutItsOwnerIsAnErrorWithoutExtraCost) {
  expectErrorsOfResult(
      {{"INSERT INTO person_evidence VALUES (1, -1, 0, 'x')",
        "person_evidence (goal 1, person -1, position 0): person: expected something that the "
        "goal has; found -1"},
       {"INSERT INTO person_evidence VALUES (1, -2, 0, 'x')",
        "person_evidence (goal 1, person -2, position 0): person: expected something that the "
        "goal has; found -2"},
       {"INSERT INTO person_evidence VALUES (1, 3, 0, 'x')",
        "person_evidence (goal 1, person 3, position 0): person: expected something that the "
        "goal has; found 3"},
       {"INSERT INTO person_evidence VALUES (1, 1073741824, 0, 'x')",
        "person_evidence (goal 1, person 1073741824, position 0): person: expected something "
        "that the goal has; found 1073741824"},
       {"INSERT INTO person_evidence VALUES (1, 9223372036854775807, 0, 'x')",
        "person_evidence (goal 1, person 9223372036854775807, position 0): person: expected "
        "something that the goal has; found 9223372036854775807"},
       {"INSERT INTO path_people VALUES (1, 1, 0, 'x')",
        "path_people (goal 1, path 1, position 0): path: expected something that the goal has; "
        "found 1"},
       {"INSERT INTO group_people VALUES (1, -1, 0, 'x')",
        "group_people (goal 1, group -1, position 0): group: expected something that the goal "
        "has; found -1"},
       {"INSERT INTO goal_texts VALUES (1, 'rumour', 0, 'x')",
        "goal_texts (goal 1, list \"rumour\", position 0): list: expected something that the "
        "goal has; found \"rumour\""},
       {"INSERT INTO goal_texts VALUES (1, 'a', 0, 'x')",
        "goal_texts (goal 1, list \"a\", position 0): list: expected something that the goal "
        "has; found \"a\""}});
}

TEST_F(DamagedRowsTest, PositionsThatDoNotCountUpFromZeroAreAnError) {
  expectErrorsOfResult(
      {{"UPDATE people SET position = 7 WHERE position = 2",
        "people (goal 1, position 7): position: expected 2; found 7"},
       {"UPDATE people SET position = -1 WHERE position = 0",
        "people (goal 1, position -1): position: expected 0; found -1"},
       {"UPDATE paths SET position = 1",
        "paths (goal 1, position 1): position: expected 0; found 1"},
       {"UPDATE groups SET position = 1",
        "groups (goal 1, position 1): position: expected 0; found 1"},
       {"UPDATE person_evidence SET position = 2 WHERE position = 1",
        "person_evidence (goal 1, person 0, position 2): position: expected 1; found 2"},
       {"UPDATE path_people SET position = -1 WHERE position = 0",
        "path_people (goal 1, path 0, position -1): position: expected 0; found -1"},
       {"UPDATE group_people SET position = 1",
        "group_people (goal 1, group 0, position 1): position: expected 0; found 1"},
       {"UPDATE goal_texts SET position = 9 WHERE text = 'Calendar'",
        "goal_texts (goal 1, list \"source\", position 9): position: expected 1; found 9"}});
}

TEST_F(DamagedRowsTest, AnUnknownCaseNameIsAnError) {
  expectErrorsOfResult(
      {{"UPDATE goals SET status = 'x'",
        "goals (number 1): status: expected one of active, paused, reached, abandoned; found "
        "\"x\""},
       {"UPDATE goals SET priority = ''",
        "goals (number 1): priority: expected one of normal, high, low; found \"\""},
       {"UPDATE people SET why_kind = 'rumour' WHERE position = 1",
        "people (goal 1, position 1): why_kind: expected one of evidence, connection, "
        "sharedActivity, nameMatch, generic; found \"rumour\""},
       {"INSERT INTO outcomes VALUES (8, 1, 'o', 'g', 'robot', NULL, 'helped', NULL, NULL, NULL, "
        "NULL)",
        "outcomes (number 8): subject_kind: expected one of person, path; found \"robot\""},
       {"INSERT INTO outcomes VALUES (8, 1, 'o', 'g', 'path', NULL, 'hindered', NULL, NULL, NULL, "
        "NULL)",
        "outcomes (number 8): value: expected one of reachedOut, invited, introduced, helped, "
        "wasUseful, notAFit, noActionTaken, somethingElse; found \"hindered\""}});
}

TEST_F(DamagedRowsTest, AReasonHasTheColumnsOfItsKindAndNoOthers) {
  const char* const columns[] = {"why_label",     "why_detail",       "why_reference",
                                 "why_hop_count", "why_thread_count", "why_meeting_count"};
  const bool isUsed[4][6] = {{false, false, false, true, false, false},    // people 0: connection
                             {true, true, true, false, false, false},      // people 1: evidence
                             {false, false, false, false, true, true},     // people 2: activity
                             {false, false, false, false, false, false}};  // paths 0: name match
  for (int row = 0; row < 4; ++row) {
    const std::string table = row < 3 ? "people" : "paths";
    const std::string position = std::to_string(row % 3);
    for (int column = 0; column < 6; ++column) {
      const bool used = isUsed[row][column];
      const std::string name = columns[column];
      damage("UPDATE " + table + " SET " + name + " = " + (used ? "NULL" : "7") +
             " WHERE position = " + position);
      const bool isText = column < 3;
      std::string expected = used ? (isText ? "a text" : "an integer") : "NULL";
      expected += used ? "; found NULL" : (isText ? "; found \"7\"" : "; found 7");
      EXPECT_EQ(errorOfResult(),
                table + " (goal 1, position " + position + "): " + name + ": expected " + expected);
      startAgain();
    }
  }
}

TEST_F(DamagedRowsTest, AGoalWithoutCoverageIsAnError) {
  expectErrorsOfResult({{"DELETE FROM coverage", "coverage has no row of the goal 1"}});
}

TEST_F(DamagedRowsTest, ValuesOfOtherTypesAreErrors) {
  struct Loose {
    const char* table;
    const char* sql;
    const char* error;
  };
  const Loose damages[] = {
      {"goals", "UPDATE goals SET title = NULL",
       "goals (number 1): title: expected a text; found NULL"},
      {"goals", "UPDATE goals SET title = x'00'",
       "goals (number 1): title: expected a text; found a blob"},
      {"goals", "UPDATE goals SET keywords_revision = 'two'",
       "goals (number 1): keywords_revision: expected an integer; found \"two\""},
      {"goals", "UPDATE goals SET target_person_ref = x''",
       "goals (number 1): target_person_ref: expected a text or NULL; found a blob"},
      {"people", "UPDATE people SET display_name = x'41' WHERE position = 0",
       "people (goal 1, position 0): display_name: expected a text or NULL; found a blob"},
      {"people", "UPDATE people SET why_kind = NULL WHERE position = 0",
       "people (goal 1, position 0): why_kind: expected a text; found NULL"},
      {"people", "UPDATE people SET position = 'x' WHERE position = 2",
       "people (goal 1, position \"x\"): position: expected an integer; found \"x\""},
      {"person_evidence", "UPDATE person_evidence SET evidence_id = NULL WHERE person = 2",
       "person_evidence (goal 1, person 2, position 0): evidence_id: expected a text; found NULL"},
      {"coverage", "UPDATE coverage SET evidence_count = 1.5",
       "coverage (goal 1): evidence_count: expected an integer; found 1.5"},
      {"paths", "UPDATE paths SET strength = NULL",
       "paths (goal 1, position 0): strength: expected an integer; found NULL"}};
  for (const auto& [table, sql, error] : damages) {
    damage(table, sql);
    EXPECT_EQ(errorOfResult(), error) << sql;
    startAgain();
  }
}

TEST_F(DamagedRowsTest, AListOfGoalsReportsDamage) {
  damage("goals", "UPDATE goals SET title = NULL");
  EXPECT_EQ(errorOf([](GoalStore& store) { store.goals(); }),
            "goals (number 1): title: expected a text; found NULL");
}

TEST_F(DamagedRowsTest, KnowledgeAcrossGoalsReportsDamage) {
  const auto ofPerson = [](GoalStore& store) { store.person("p1"); };
  const auto ofEvidence = [](GoalStore& store) { store.evidence("e2"); };
  damage("UPDATE person_evidence SET position = 2 WHERE position = 1");
  EXPECT_EQ(errorOf(ofPerson),
            "person_evidence (goal 1, person 0, position 2): position: expected 1; found 2");
  startAgain();
  damage("UPDATE person_evidence SET position = -1 WHERE position = 1");
  EXPECT_EQ(errorOf(ofEvidence),
            "person_evidence (goal 1, person 0, position -1): position: expected 0 or more; "
            "found -1");
  startAgain();
  damage("UPDATE people SET why_hop_count = NULL");
  for (const auto& act : {std::function<void(GoalStore&)>(ofPerson), {ofEvidence}}) {
    EXPECT_EQ(errorOf(act).substr(errorOf(act).find("why")),
              "why_hop_count: expected an integer; found NULL");
  }
  startAgain();
  damage(
      "INSERT INTO outcomes VALUES (8, 1, 'o', 'g', 'person', 'p1', 'hindered', NULL, NULL, "
      "NULL, NULL)");
  EXPECT_EQ(errorOf(ofPerson).substr(0, 27), "outcomes (number 8): value:");
}

TEST_F(DamagedRowsTest, ATextThatIsNotUtf8IsAnError) {
  expectErrorsOfResult(
      {{"UPDATE goals SET title = CAST(x'41FF' AS TEXT)",
        "goals (number 1): title: expected a text in UTF-8; found \"A\uFFFD\""},
       {"UPDATE people SET display_name = CAST(x'C3' AS TEXT) WHERE position = 1",
        "people (goal 1, position 1): display_name: expected a text in UTF-8; found \"\uFFFD\""},
       {"UPDATE goals SET status = CAST(x'EDA080' AS TEXT)",
        "goals (number 1): status: expected a text in UTF-8; found \"\uFFFD\uFFFD\uFFFD\""},
       {"INSERT INTO goal_texts VALUES (1, CAST(x'7AFF' AS TEXT), 0, 'x')",
        "goal_texts (goal 1, list \"z\uFFFD\", position 0): list: expected a text in UTF-8; found "
        "\"z\uFFFD\""},
       {"INSERT INTO outcomes VALUES (8, 1, 'o', 'g', 'path', NULL, 'helped', CAST(x'80' AS TEXT), "
        "NULL, NULL, NULL)",
        "outcomes (number 8): note: expected a text in UTF-8; found \"\uFFFD\""}});
}

TEST_F(DamagedRowsTest, ATextThatIsNotUtf8IsRefusedBeforeItIsWritten) {
  const std::string refusal = file + ": takes in texts in UTF-8 only; found \"a\uFFFD\"";
  GetGoalSnapshotResponse result = rich();
  result.people = {{"p1", "a\xFF", GoalWhyDTO::connection(2), {}}};
  EXPECT_EQ(errorOf([&](GoalStore& store) { store.import({result}); }), refusal);
  EXPECT_EQ(errorOf([](GoalStore& store) {
              store.record("g", {GoalOutcomeSubjectKind::person, "p1", {}, "a\xFF", {}});
            }),
            refusal);
  EXPECT_EQ(errorOfResult(), "no error");
  EXPECT_EQ(errorOf([](GoalStore& store) { store.result("a\xFF"); }),
            file + ": has no goal with the id \"a\uFFFD\"");
}

}  // namespace
}  // namespace vemra::desk
