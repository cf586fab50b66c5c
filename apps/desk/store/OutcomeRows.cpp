#include "apps/desk/store/OutcomeRows.hpp"

#include "VemraPlatform/text/TextMap.hpp"
#include "apps/desk/store/CaseNames.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/documents/DocumentError.hpp"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

/// The number of outcomes that can still be recorded, at least one. Outcome numbers only increase,
/// and when there is no higher number, SQLite reports a full disk.
std::int64_t numbersAbove(Database& database) {
  constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
  std::int64_t last = 0;
  const auto look = [&](const char* sql, const char* table, int column) {
    Statement row(database, sql, {table, 1});
    row.query();
    while (row.next()) {
      last = std::max(last, row.integer(column));
      if (last == highest) row.damaged(column, "a number that leaves one for another outcome");
    }
  };
  look("SELECT name, seq FROM sqlite_sequence WHERE name = 'outcomes'", "sqlite_sequence", 1);
  look("SELECT number FROM outcomes ORDER BY number DESC LIMIT 1", "outcomes", 0);
  return highest - last;
}

}  // namespace

using documents::outcomeValueNames;
using documents::subjectKindNames;

GoalOutcomeDTO readOutcome(Statement& row, int first) {
  return {row.text(first),
          row.text(first + 1),
          readCase<GoalOutcomeSubjectKind>(row, first + 2, subjectKindNames),
          row.optionalText(first + 3),
          readCase<GoalOutcomeValue>(row, first + 4, outcomeValueNames),
          row.optionalText(first + 5),
          row.optionalText(first + 6),
          row.optionalText(first + 7),
          row.optionalText(first + 8)};
}

std::int64_t readOutcomesAbove(Database& database, std::int64_t goal, std::int64_t last,
                               std::vector<GoalOutcomeDTO>& outcomes) {
  Statement row(database,
                std::string("SELECT number, ") + outcomeColumnNames +
                    " FROM outcomes INDEXED BY outcomes_of_goal WHERE goal = ?1 AND number > ?2 "
                    "ORDER BY number",
                {"outcomes", 1});
  row.query(goal, last);
  while (row.next()) {
    last = row.integer(0);
    outcomes.push_back(readOutcome(row, 1));
  }
  return last;
}

SharedArray<GoalOutcomeDTO> readOutcomes(Database& database, std::int64_t goal) {
  std::vector<GoalOutcomeDTO> outcomes;
  readOutcomesAbove(database, goal, beforeAllOutcomes, outcomes);
  return withRoom(std::move(outcomes));
}

SharedArray<GoalOutcomeDTO> withRoom(std::vector<GoalOutcomeDTO> outcomes) {
  const std::size_t room = 16 + outcomes.size() / 8;
  return {std::move(outcomes), room};
}

OutcomeInsertion::OutcomeInsertion(Database& database)
    : database_(database),
      insert_(database,
              "INSERT INTO outcomes VALUES (NULL, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10)") {}

std::int64_t OutcomeInsertion::append(std::int64_t goal, const GoalOutcomeDTO& outcome) {
  if (numbersLeft_ == 0) numbersLeft_ = numbersAbove(database_);
  --numbersLeft_;
  insert_.run(goal, outcome.id, outcome.goalID, caseName(outcome.subjectKind), outcome.subjectRef,
              caseName(outcome.value), outcome.note, outcome.recordedAt, outcome.recordedBy,
              outcome.correctsOutcomeID);
  return sqlite3_last_insert_rowid(database_.handle());
}

std::vector<std::size_t> mergeOutcomes(Database& database, std::int64_t goal,
                                       const SharedArray<GoalOutcomeDTO>& outcomes) {
  const SharedArray<GoalOutcomeDTO> recorded = readOutcomes(database, goal);
  struct Uses {
    std::vector<const GoalOutcomeDTO*> records;
    std::size_t seen = 0;
  };
  text::TextMap<std::string_view, Uses> usesOfID;
  for (const GoalOutcomeDTO& record : recorded) usesOfID[record.id].records.push_back(&record);

  std::vector<std::size_t> leftOut;
  OutcomeInsertion insertion(database);
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    Uses& uses = usesOfID[outcomes[i].id];
    const std::size_t use = uses.seen++;
    if (use >= uses.records.size()) {
      insertion.append(goal, outcomes[i]);
    } else if (!(outcomes[i] == *uses.records[use])) {
      leftOut.push_back(i);
    }
  }
  return leftOut;
}

std::vector<std::string> recordedAmong(Database& database, std::int64_t goal,
                                       const std::vector<std::string>& outcomeIDs) {
  Statement row(database, "SELECT number FROM outcomes WHERE id = ?1 AND goal = ?2",
                {"outcomes", 1});
  std::vector<std::string> recorded;
  for (const std::string& id : outcomeIDs) {
    row.query(id, goal);
    if (row.next()) recorded.push_back(id);
  }
  return recorded;
}

std::optional<GoalOutcomeDTO> recordedBefore(Database& database, std::int64_t goal,
                                             const GoalOutcomeDTO& outcome) {
  Statement row(
      database,
      std::string("SELECT number, goal, ") + outcomeColumnNames + " FROM outcomes WHERE id = ?1",
      {"outcomes", 1});
  row.query(outcome.id);
  bool isUsed = false;
  while (row.next()) {
    GoalOutcomeDTO record = readOutcome(row, 2);
    GoalOutcomeDTO sameDate = outcome;
    sameDate.recordedAt = record.recordedAt;
    if (row.integer(1) == goal && record == sameDate) return record;
    isUsed = true;
  }
  if (!isUsed) return std::nullopt;
  throw StoreError(database.file(), "has another outcome of the id " +
                                        documents::inQuotes(outcome.id) + ", which stays");
}

}  // namespace vemra::desk
