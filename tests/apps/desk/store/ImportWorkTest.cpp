#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/ResultRows.hpp"
#include "apps/desk/store/Schema.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vemra::desk {
namespace {

/// Counts the statements that insert rows into a table, and their steps of SQLite's virtual machine,
/// in the connections that are opened while it lives.
class InsertionSteps {
 public:
  explicit InsertionSteps(const std::string& table) {
    insertion = "INSERT INTO " + table + ' ';
    steps = statements = 0;
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(watch));
  }
  InsertionSteps(const InsertionSteps&) = delete;
  InsertionSteps& operator=(const InsertionSteps&) = delete;
  ~InsertionSteps() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(watch)); }

  static int all() { return steps; }
  static int statementCount() { return statements; }

 private:
  static int watch(sqlite3* connection, const char**, const void*) {
    return sqlite3_trace_v2(connection, SQLITE_TRACE_PROFILE, ended, nullptr);
  }
  static int ended(unsigned, void*, void* statement, void*) {
    auto* ran = static_cast<sqlite3_stmt*>(statement);
    if (std::string_view(sqlite3_sql(ran)).starts_with(insertion)) {
      steps += sqlite3_stmt_status(ran, SQLITE_STMTSTATUS_VM_STEP, 1);
      ++statements;
    }
    return 0;
  }
  static inline std::string insertion;
  static inline int steps = 0;
  static inline int statements = 0;
};

GetGoalSnapshotResponse crowd(std::size_t people) {
  GetGoalSnapshotResponse result = goal("g1", "t");
  result.people = std::vector<GoalPersonCandidateDTO>(
      people, {"p", "Ada", GoalWhyDTO::evidence("a", "b", "c"), {"e"}});
  return result;
}

using ImportWork = StoreFile;

TEST_F(ImportWork, EachPersonTakesFewStepsOfSQLite) {
  const InsertionSteps steps("people");
  GoalStore::open(file).import({crowd(500)});
  EXPECT_EQ(steps.statementCount(), 10) << "each inserts many rows";
  // With the table of names that SQLite would make for each row, they are more than 100 a row; with
  // the search for its goal, 45 rather than 36.
  EXPECT_LT(steps.all() / 500, 42);
}

TEST_F(ImportWork, EachEvidenceTakesFewStepsOfSQLite) {
  const InsertionSteps steps("person_evidence");
  GoalStore::open(file).import({crowd(500)});
  EXPECT_EQ(steps.statementCount(), 10) << "each inserts many rows";
  EXPECT_LT(steps.all() / 500, 28) << "with the search for the person they are 31 rather than 22";
}

TEST_F(ImportWork, ForeignKeysApplyAgainAfterAResultIsWrittenOrRefused) {
  Database database(file, Database::Opening::orCreate, usualPatience);
  prepareSchema(database);
  addResult(database, crowd(2));
  EXPECT_EQ(database.number("PRAGMA foreign_keys"), 1);
  GetGoalSnapshotResponse refused = goal("g2", "t");
  refused.group = std::vector<GoalGroupCandidateDTO>{{"\xFF", {}}};
  EXPECT_NE(errorOf([&] { addResult(database, refused); }), "no error");
  EXPECT_EQ(database.number("PRAGMA foreign_keys"), 1);
}

TEST_F(ImportWork, TheConstraintsApplyToLaterRecords) {
  GoalStore store = GoalStore::open(file);
  store.import({crowd(1)});
  const auto noValue = static_cast<GoalOutcomeValue>(99);
  const std::string error = errorOf([&] {
    store.record("g1", {GoalOutcomeSubjectKind::person, "p", noValue, {}, {}});
  });
  EXPECT_NE(error, "no error");
  EXPECT_TRUE(store.outcomes("g1").empty());
}

}  // namespace
}  // namespace vemra::desk
