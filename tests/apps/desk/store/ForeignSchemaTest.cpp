#include "apps/desk/store/Schema.hpp"
#include "apps/desk/store/Tables.hpp"
#include "apps/documents/ResultReader.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/desk/store/DamagedStore.hpp"

namespace vemra::desk {
namespace {

class ForeignSchemaTest : public DamagedStore {
 protected:
  std::string errorOfOpening() const {
    const std::string error = errorOf([](GoalStore&) {});
    try {
      GoalStore::openExisting(file);
      EXPECT_EQ(error, "no error") << "reading must refuse what writing does";
    } catch (const StoreError& reading) {
      EXPECT_EQ(reading.what(), file + ": is damaged: " + error);
    }
    return error;
  }
};

TEST_F(ForeignSchemaTest, AnObjectThatIsNotPartOfAStoreIsRefusedByName) {
  const std::pair<const char*, const char*> objects[] = {
      {"CREATE TRIGGER thief AFTER INSERT ON outcomes BEGIN DELETE FROM people; END",
       "the trigger \"thief\""},
      {"CREATE VIEW window AS WITH RECURSIVE n AS (SELECT 1 UNION ALL SELECT 2 FROM n) "
       "SELECT * FROM n",
       "the view \"window\""},
      {"CREATE TABLE notes (text)", "the table \"notes\""},
      {"CREATE INDEX more ON people (person_ref)", "the index \"more\""},
      {"CREATE VIRTUAL TABLE search USING fts5(text)", "the table \"search\""}};
  for (const auto& [sql, object] : objects) {
    ASSERT_EQ(RawDatabase(file).run(sql), "");
    EXPECT_EQ(errorOfOpening(), std::string(object) + " is not part of a store");
    startAgain();
  }
}

TEST_F(ForeignSchemaTest, EveryObjectOfAStoreIsRequired) {
  for (const SchemaObject& object : tablesOfVersion(schemaVersion)) {
    const std::string named = std::string(object.type) + " \"" + object.name + "\"";
    ASSERT_EQ(RawDatabase(file).run(std::string("DROP ") + object.type + ' ' + object.name), "");
    EXPECT_EQ(errorOfOpening(), "the " + named + " is missing");
    startAgain();
  }
}

// Without it SQLite reads a store, and reports it as damaged when an outcome is recorded.
TEST_F(ForeignSchemaTest, TheTableOfSQLiteForOutcomeNumbersIsRequired) {
  ASSERT_EQ(RawDatabase(file).run("PRAGMA writable_schema = ON; "
                                  "DELETE FROM sqlite_schema WHERE name = 'sqlite_sequence'"),
            "");
  EXPECT_EQ(errorOfOpening(), "the table \"sqlite_sequence\" is missing");
}

TEST_F(ForeignSchemaTest, EveryObjectOfAStoreMustBeUnchanged) {
  for (const SchemaObject& object : tablesOfVersion(schemaVersion)) {
    const std::string named = std::string(object.type) + " \"" + object.name + "\"";
    ASSERT_EQ(RawDatabase(file).run("PRAGMA writable_schema = ON; "
                                    "UPDATE sqlite_schema SET sql = sql || ' ' WHERE name = '" +
                                    std::string(object.name) + "'"),
              "");
    EXPECT_EQ(errorOfOpening(), "the " + named + " is not as a store has it");
    startAgain();
  }
}

TEST_F(ForeignSchemaTest, AViewWithTheNameOfATableIsRefused) {
  ASSERT_EQ(RawDatabase(file).run("DROP TABLE coverage; CREATE VIEW coverage AS "
                                  "SELECT 1 AS goal, 0 AS evidence_count, NULL AS x"),
            "");
  EXPECT_EQ(errorOfOpening(), "the view \"coverage\" is not as a store has it");
}

TEST_F(ForeignSchemaTest, AStoreWithoutAnyTableIsRefused) {
  const std::string bare = folder.file("bare.sqlite");
  RawDatabase(bare).run("PRAGMA user_version = 1; PRAGMA application_id = 1450001515");
  file = bare;
  EXPECT_EQ(errorOfOpening(), "the table \"goals\" is missing");
}

TEST_F(ForeignSchemaTest, AnalyzingAStoreDoesNoHarm) {
  ASSERT_EQ(RawDatabase(file).run("ANALYZE"), "");
  ASSERT_EQ(RawDatabase(file).value("SELECT count(*) FROM sqlite_schema WHERE name = "
                                    "'sqlite_stat1'"),
            "1");
  EXPECT_EQ(errorOfOpening(), "no error");
}

TEST_F(ForeignSchemaTest, AnotherTableWithTheNameOfATableOfSQLiteIsRefused) {
  ASSERT_EQ(RawDatabase(file).run("ANALYZE; PRAGMA writable_schema = ON; UPDATE sqlite_schema "
                                  "SET sql = 'CREATE TABLE sqlite_stat1(tbl,idx,stat,more)' "
                                  "WHERE name = 'sqlite_stat1'"),
            "");
  EXPECT_EQ(errorOfOpening(), "the table \"sqlite_stat1\" is not part of a store");
}

TEST_F(ForeignSchemaTest, ATriggerAddedWhileAStoreIsOpenNeverRuns) {
  GoalStore store = GoalStore::open(file);
  ASSERT_EQ(store.goals().size(), 1u);
  RawDatabase other(file);
  ASSERT_EQ(other.run("CREATE TRIGGER thief AFTER INSERT ON outcomes BEGIN DELETE FROM people; "
                      "END"),
            "");
  const std::function<void()> acts[] = {
      [&] {
        store.record("g", {GoalOutcomeSubjectKind::person, {}, GoalOutcomeValue::reachedOut});
      },
      [&] { store.import({rich()}); },
      [&] { store.goals(); },
      [&] { store.hasGoal("g"); },
      [&] { store.result("g"); },
      [&] { store.outcomes("g"); },
      [&] { store.person("p1"); },
      [&] { store.evidence("e1"); },
      [&] { store.names("g", {"p1"}); }};
  for (const auto& act : acts) {
    try {
      act();
      ADD_FAILURE() << "act " << &act - acts;
    } catch (const StoreError& error) {
      EXPECT_EQ(error.what(), file + ": is damaged: the trigger \"thief\" is not part of a store");
    }
  }
  EXPECT_EQ(other.value("SELECT count(*) FROM people"), "3");
  EXPECT_EQ(other.value("SELECT count(*) FROM outcomes"), "1");
  ASSERT_EQ(other.run("DROP TRIGGER thief"), "");
  store.record("g", {GoalOutcomeSubjectKind::person, {}, GoalOutcomeValue::reachedOut});
  EXPECT_EQ(store.outcomes("g").size(), 2u) << "the store must still work";
}

TEST_F(ForeignSchemaTest, AStoreThatIsEmptiedWhileItIsOpenIsAnError) {
  GoalStore store = GoalStore::open(file);
  ASSERT_EQ(store.goals().size(), 1u);
  std::string drops =
      "PRAGMA application_id = 0; PRAGMA user_version = 0; "
      "PRAGMA writable_schema = RESET; DROP TRIGGER outcomes_stay; ";
  for (const SchemaObject& object : tablesOfVersion(schemaVersion)) {
    if (object.type == std::string_view("table"))
      drops += std::string("DROP TABLE ") + object.name + ";";
  }
  RawDatabase other(file);
  ASSERT_EQ(other.run(drops), "");
  ASSERT_EQ(other.run("PRAGMA writable_schema = ON; DELETE FROM sqlite_schema; "
                      "PRAGMA schema_version = 4711"),
            "");
  try {
    store.goals();
    ADD_FAILURE() << "there are no goals";
  } catch (const StoreError& error) {
    EXPECT_EQ(error.what(), file + ": is damaged: it has no tables");
  }
}

TEST_F(ForeignSchemaTest, AStoreOfVersion1IsReadAndWritten) {
  file = folder.file("version-1.sqlite");
  ASSERT_EQ(RawDatabase(file).run(TemporaryFolder::readFile(VEMRA_STORE_OF_VERSION_1)), "");
  GoalStore store = GoalStore::open(file);
  const std::string text = documents::writeResult(store.result("g"));
  EXPECT_EQ(text, R"({
  "goal": {"id": "g", "title": "Ein Ziel", "status": "paused", "targetPersonRef": "p9", )"
                  R"("createdAt": "2025-01-01T00:00:00Z", "priority": "high", )"
                  R"("keywords": ["design", "lead"], "keywordsRevision": 2, )"
                  R"("constraints": ["soon"], "attachmentRefs": ["file-1"]},
  "people": [
    {"personRef": "p1", "displayName": "Ada", "why": {"kind": "connection", "hopCount": 2}, )"
                  R"("evidenceIDs": ["e1", "e2"]},
    {"personRef": "p2", "displayName": null, "why": {"kind": "evidence", "label": "Email", )"
                  R"("detail": "Asked", "reference": "e1"}, "evidenceIDs": []},
    {"personRef": "p3", "displayName": "", "why": {"kind": "sharedActivity", )"
                  R"("threadCount": 1, "meetingCount": 2}, "evidenceIDs": []}
  ],
  "paths": [
    {"personRefs": ["p1", "p9"], "why": {"kind": "nameMatch"}, "strength": 3}
  ],
  "group": [
    {"id": "grp", "personRefs": ["p1"]}
  ],
  "coverage": {"sources": ["Mail", "Calendar"], "evidenceCount": 2, )"
                  R"("latestEvidenceAt": "2025-01-05T10:00:00Z"},
  "outcomes": [
    {"id": "o1", "subjectKind": "person", "subjectRef": "p1", "value": "helped", )"
                  R"("note": "it's ü", "correctsOutcomeID": null}
  ]
}
)");
  store.import({documents::readResultText(text, "again")});
  store.record("g", {GoalOutcomeSubjectKind::person, {}, GoalOutcomeValue::reachedOut});
  EXPECT_EQ(store.outcomes("g").size(), 2u);
}

}  // namespace
}  // namespace vemra::desk
