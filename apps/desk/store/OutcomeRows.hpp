#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/desk/store/Statement.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/// \file
/// Recorded outcomes as rows: they are added and read, and nothing else is ever done with them.
/// To be called inside a transaction.

namespace vemra::desk {

/// The columns of an outcome, for a list in SQL that names no other table with such columns.
inline constexpr const char* outcomeColumnNames =
    "outcomes.id, goal_id, subject_kind, subject_ref, value, note, recorded_at, recorded_by, "
    "corrects_outcome_id";

/// Reads the outcome from those columns of the current row, which begin at `first`.
GoalOutcomeDTO readOutcome(Statement& row, int first);

/// The outcomes of a goal in the order in which they were recorded.
std::vector<GoalOutcomeDTO> readOutcomes(Database& database, std::int64_t goal);

/// Records outcomes; many with one statement, which takes most of the time to prepare.
class OutcomeInsertion {
 public:
  explicit OutcomeInsertion(Database& database);

  /// Records an outcome behind all others of its goal. Throws a `StoreError` that names table and
  /// row when a store has been tampered with so that no number is left for another outcome.
  void append(std::int64_t goal, const GoalOutcomeDTO& outcome);

 private:
  Database& database_;
  Statement insert_;
  std::int64_t numbersLeft_ = 0;
};

/// Records those of a document's outcomes that are not recorded yet, in the document's order.
///
/// An outcome is recorded already when the goal has one of the same id. Where a document uses an id
/// several times, its first use stands for the first record of that id, and so on; so importing a
/// document twice adds nothing, and a document always comes out as it went in. A record is never
/// touched: where the document says something else about it, the record stays.
/// - Returns: the indices of the document's outcomes that were left out for that reason.
std::vector<std::size_t> mergeOutcomes(Database& database, std::int64_t goal,
                                       const SharedArray<GoalOutcomeDTO>& outcomes);

/// Looks for the record that an earlier try to record an outcome has left.
///
/// - Parameter outcome: as it is to be recorded. The date of the record may be another.
/// - Returns: the record; none when there is no outcome of that id. Throws a `StoreError` when
///   there is one, and it is of another goal or says something else.
std::optional<GoalOutcomeDTO> recordedBefore(Database& database, std::int64_t goal,
                                             const GoalOutcomeDTO& outcome);

}  // namespace vemra::desk
