#include "apps/desk/store/ResultRows.hpp"

#include "apps/desk/store/CaseNames.hpp"
#include "apps/desk/store/Reason.hpp"
#include "apps/desk/store/RowInsertion.hpp"
#include "apps/desk/store/Statement.hpp"

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

using documents::nameIn;
using documents::priorityNames;
using documents::statusNames;
using Texts = SharedArray<std::string>;

/// The tables with the data of a goal; inner tables precede those of their owners. The last table
/// contains the recorded outcomes.
constexpr const char* tablesOfAGoal[] = {"goal_texts",  "person_evidence", "people",
                                         "path_people", "paths",           "group_people",
                                         "groups",      "coverage",        "outcomes"};

/// Leaves out the CHECK constraints, the foreign keys and the triggers of the rows that are written
/// in its scope.
///
/// For every row SQLite makes a temporary table of the names in `why_kind IN (…)` and looks for the
/// row's owner; both take longer than the row itself. Rows that are made of a record satisfy the
/// constraints: positions count up from 0, `ReasonColumns` fills the columns of one kind, and each
/// row is written with its owner and deleted with it. SQLite still checks types,
/// NOT NULL, UNIQUE and primary keys; rows of other programs are checked when they are read.
///
/// The triggers on these rows change the stamp of their goal. One statement on the goal's own row,
/// outside the scope, does that for all of them.
class WithoutChecks {
 public:
  explicit WithoutChecks(Database& database) : database_(database) {
    database.run("PRAGMA ignore_check_constraints = ON");
    use(0);
  }
  WithoutChecks(const WithoutChecks&) = delete;
  WithoutChecks& operator=(const WithoutChecks&) = delete;
  ~WithoutChecks() {
    sqlite3_exec(database_.handle(), "PRAGMA ignore_check_constraints = OFF", nullptr, nullptr,
                 nullptr);
    use(1);
  }

 private:
  void use(int value) {
    // PRAGMA foreign_keys does nothing inside a transaction; this does.
    for (const int setting : {SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_FKEY}) {
      sqlite3_db_config(database_.handle(), setting, value, static_cast<int*>(nullptr));
    }
  }

  Database& database_;
};

/// Writes one result into the tables.
class Writing {
 public:
  Writing(Database& database, std::int64_t goal) : database_(database), goal_(goal) {}

  void lists(const GetGoalSnapshotResponse& result) {
    RowInsertion insertion(database_, "goal_texts");
    const auto list = [&](std::string_view name, const Texts& texts) {
      for (std::size_t i = 0; i < texts.size(); ++i) insertion.add(goal_, name, i, texts[i]);
    };
    list("attachment", result.goal.attachmentRefs);
    list("constraint", result.goal.constraints);
    list("keyword", result.goal.keywords);
    list("source", result.coverage.sources);
    insertion.finish();
    Statement(database_, "INSERT INTO coverage VALUES (?1, ?2, ?3)")
        .run(goal_, result.coverage.evidenceCount, result.coverage.latestEvidenceAt);
  }

  void people(const SharedArray<GoalPersonCandidateDTO>& people) {
    RowInsertion insertion(database_, "people");
    RowInsertion evidence(database_, "person_evidence");
    for (std::size_t i = 0; i < people.size(); ++i) {
      const GoalPersonCandidateDTO& person = people[i];
      const ReasonColumns why(person.why);
      insertion.add(goal_, i, person.personRef, person.displayName, why.kind, why.label, why.detail,
                    why.reference, why.hopCount, why.threadCount, why.meetingCount);
      each(evidence, i, person.evidenceIDs);
    }
    insertion.finish();
    evidence.finish();
  }

  void paths(const SharedArray<GoalPathCandidateDTO>& paths) {
    RowInsertion insertion(database_, "paths");
    RowInsertion people(database_, "path_people");
    for (std::size_t i = 0; i < paths.size(); ++i) {
      const ReasonColumns why(paths[i].why);
      insertion.add(goal_, i, paths[i].strength, why.kind, why.label, why.detail, why.reference,
                    why.hopCount, why.threadCount, why.meetingCount);
      each(people, i, paths[i].personRefs);
    }
    insertion.finish();
    people.finish();
  }

  void groups(const SharedArray<GoalGroupCandidateDTO>& groups) {
    RowInsertion insertion(database_, "groups");
    RowInsertion people(database_, "group_people");
    for (std::size_t i = 0; i < groups.size(); ++i) {
      insertion.add(goal_, i, groups[i].id);
      each(people, i, groups[i].personRefs);
    }
    insertion.finish();
    people.finish();
  }

  void everything(const GetGoalSnapshotResponse& result) {
    const WithoutChecks withoutChecks(database_);
    lists(result);
    people(result.people);
    paths(result.paths);
    groups(result.group);
  }

 private:
  void each(RowInsertion& insertion, std::size_t owner, const Texts& texts) const {
    for (std::size_t i = 0; i < texts.size(); ++i) insertion.add(goal_, owner, i, texts[i]);
  }

  Database& database_;
  std::int64_t goal_;
};

/// The number for a new goal: higher than the numbers of all goals, and of all rows whose goal is
/// missing. A goal with the number of such rows would own them, and they must stay, because
/// outcomes are never removed.
std::int64_t newGoalNumber(Database& database) {
  constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
  std::int64_t last = 0;
  const auto look = [&](const char* table, const std::string& column) {
    Statement row(database,
                  "SELECT " + column + " FROM " + table + " ORDER BY " + column + " DESC LIMIT 1",
                  {table, 1});
    row.query();
    if (!row.next()) return;
    last = std::max(last, row.integer(0));
    if (last == highest) row.damaged(0, "a number that leaves one for another goal");
  };
  look("goals", "number");
  for (const char* table : tablesOfAGoal) look(table, "goal");
  return last + 1;
}

}  // namespace

std::int64_t addResult(Database& database, const GetGoalSnapshotResponse& result) {
  const GoalDTO& goal = result.goal;
  const std::int64_t number = newGoalNumber(database);
  Statement(database, "INSERT INTO goals VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10)")
      .run(number, goal.id, goal.title, nameIn(statusNames, goal.status), goal.targetPersonRef,
           goal.createdAt, goal.updatedAt, nameIn(priorityNames, goal.priority),
           goal.keywordsRevision, goal.constraintsRevision);
  Writing(database, number).everything(result);
  return number;
}

void replaceResult(Database& database, std::int64_t number, const GetGoalSnapshotResponse& result) {
  // Delete inner rows by their goal, not by their owners, so that rows without an owner are deleted
  // too.
  {
    const WithoutChecks withoutChecks(database);
    for (const std::string_view table : tablesOfAGoal) {
      if (table == "outcomes") continue;
      Statement(database, std::string("DELETE FROM ").append(table) + " WHERE goal = ?1")
          .run(number);
    }
  }
  const GoalDTO& goal = result.goal;
  Statement(database,
            "UPDATE goals SET id = ?2, title = ?3, status = ?4, target_person_ref = ?5, "
            "created_at = ?6, updated_at = ?7, priority = ?8, keywords_revision = ?9, "
            "constraints_revision = ?10 WHERE number = ?1")
      .run(number, goal.id, goal.title, nameIn(statusNames, goal.status), goal.targetPersonRef,
           goal.createdAt, goal.updatedAt, nameIn(priorityNames, goal.priority),
           goal.keywordsRevision, goal.constraintsRevision);
  Writing(database, number).everything(result);
}

}  // namespace vemra::desk
