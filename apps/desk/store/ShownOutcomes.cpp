#include "apps/desk/store/ShownOutcomes.hpp"

#include "VemraPlatform/text/UTF8.hpp"
#include "apps/desk/store/CaseNames.hpp"
#include "apps/desk/store/EquivalentASCII.hpp"
#include "apps/desk/store/OutcomeRows.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

bool hasAtMost(Database& database, std::int64_t goal, std::size_t most) {
  Statement row(database,
                "SELECT count(*) FROM (SELECT 1 FROM outcomes INDEXED BY outcomes_of_goal "
                "WHERE goal = ?1 LIMIT ?2)");
  row.query(goal, most + 1);
  row.next();
  return row.index(0) <= most;
}

std::int64_t lastNumber(Database& database, std::int64_t goal) {
  Statement row(database,
                "SELECT number FROM outcomes INDEXED BY outcomes_of_goal WHERE goal = ?1 "
                "ORDER BY number DESC LIMIT 1",
                {"outcomes", 1});
  row.query(goal);
  return row.next() ? row.integer(0) : beforeAllOutcomes;
}

/// Finds the number of the last outcome of each subject.
class LastOfSubjects {
 public:
  LastOfSubjects(Database& database, std::int64_t goal)
      : database_(database),
        goal_(goal),
        last_(database,
              "SELECT number FROM outcomes INDEXED BY outcomes_of_subject "
              "WHERE goal = ?1 AND subject_kind = ?2 AND subject_ref IS ?3 "
              "ORDER BY number DESC LIMIT 1",
              {"outcomes", 1}) {}

  /// Finds the outcomes of which the reference has the bytes of this one, or is equivalent to it and
  /// ASCII. `addThoseBeyondASCII` finds all others.
  void add(GoalOutcomeSubjectKind kind, const std::optional<std::string>& ref) {
    addLastOf(kind, ref);
    if (!ref || text::isASCII(*ref)) return;
    if (const auto ascii = equivalentASCII(*ref)) addLastOf(kind, ascii);
  }

  void addThoseBeyondASCII() {
    Statement row(database_,
                  "SELECT max(number) FROM outcomes INDEXED BY outcomes_beyond_ascii "
                  "WHERE goal = ?1 AND length(subject_ref) <> length(CAST(subject_ref AS BLOB)) "
                  "GROUP BY subject_kind, subject_ref");
    row.query(goal_);
    while (row.next()) numbers_.push_back(row.integer(0));
  }

  /// The outcomes found, in their order.
  std::vector<GoalOutcomeDTO> read() {
    std::ranges::sort(numbers_);
    const auto repeated = std::ranges::unique(numbers_);
    numbers_.erase(repeated.begin(), repeated.end());
    Statement row(
        database_,
        std::string("SELECT number, ") + outcomeColumnNames + " FROM outcomes WHERE number = ?1",
        {"outcomes", 1});
    std::vector<GoalOutcomeDTO> outcomes;
    outcomes.reserve(numbers_.size());
    for (const std::int64_t number : numbers_) {
      row.query(number);
      if (!row.next()) database_.fail(SQLITE_CORRUPT);  // the index has a row that the table lacks
      outcomes.push_back(readOutcome(row, 1));
    }
    return outcomes;
  }

 private:
  void addLastOf(GoalOutcomeSubjectKind kind, const std::optional<std::string>& ref) {
    last_.query(goal_, caseName(kind), ref);
    if (last_.next()) numbers_.push_back(last_.integer(0));
  }

  Database& database_;
  std::int64_t goal_;
  Statement last_;
  std::vector<std::int64_t> numbers_;
};

}  // namespace

ShownOutcomes readShownOutcomes(Database& database, std::int64_t goal,
                                const GetGoalSnapshotResponse& shown, int schemaVersion) {
  const std::size_t few = std::max(fewOutcomes, shown.people.size());
  if (schemaVersion < 2 || hasAtMost(database, goal, few)) {
    std::vector<GoalOutcomeDTO> all;
    const std::int64_t last = readOutcomesAbove(database, goal, beforeAllOutcomes, all);
    return {withRoom(std::move(all)), last, true};
  }
  LastOfSubjects found(database, goal);
  for (const GoalPersonCandidateDTO& person : shown.people) {
    found.add(GoalOutcomeSubjectKind::person, person.personRef);
  }
  for (const GoalPathCandidateDTO& path : shown.paths) {
    std::optional<std::string> target;
    if (!path.personRefs.empty()) target = path.personRefs.back();
    found.add(GoalOutcomeSubjectKind::path, target);
  }
  found.addThoseBeyondASCII();
  return {withRoom(found.read()), lastNumber(database, goal), false};
}

}  // namespace vemra::desk
