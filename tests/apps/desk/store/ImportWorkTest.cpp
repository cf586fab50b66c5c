#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/ErrorOf.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace vemra::desk {
namespace {

/// Counts the steps of SQLite's virtual machine for each row that is inserted into a table, in the
/// connections that are opened while it lives.
class InsertionSteps {
 public:
  explicit InsertionSteps(const std::string& table) {
    insertion = "INSERT INTO " + table + ' ';
    steps.clear();
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(watch));
  }
  InsertionSteps(const InsertionSteps&) = delete;
  InsertionSteps& operator=(const InsertionSteps&) = delete;
  ~InsertionSteps() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(watch)); }

  static const std::vector<int>& ofEachRow() { return steps; }

 private:
  static int watch(sqlite3* connection, const char**, const void*) {
    return sqlite3_trace_v2(connection, SQLITE_TRACE_PROFILE, ended, nullptr);
  }
  static int ended(unsigned, void*, void* statement, void*) {
    auto* ran = static_cast<sqlite3_stmt*>(statement);
    if (std::string_view(sqlite3_sql(ran)).starts_with(insertion)) {
      steps.push_back(sqlite3_stmt_status(ran, SQLITE_STMTSTATUS_VM_STEP, 1));
    }
    return 0;
  }
  static inline std::string insertion;
  static inline std::vector<int> steps;
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
  ASSERT_EQ(steps.ofEachRow().size(), 500u);
  // With the table of names that SQLite would make for each row, they are more than 100.
  EXPECT_LT(*std::ranges::max_element(steps.ofEachRow()), 80);
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
