#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/desk/store/Statement.hpp"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

/// \file
/// Recorded outcomes as rows. This file only adds and reads them; they are never changed or
/// removed. Call its functions inside a transaction.

namespace vemra::desk {

/// The columns of an outcome, for SQL that names no other table with the same column names.
inline constexpr const char* outcomeColumnNames =
    "outcomes.id, goal_id, subject_kind, subject_ref, value, note, recorded_at, recorded_by, "
    "corrects_outcome_id";

/// Reads an outcome from these columns of the current row, beginning at the column `first`.
GoalOutcomeDTO readOutcome(Statement& row, int first);

/// The outcomes of a goal in the order in which they were recorded, with room for some more.
SharedArray<GoalOutcomeDTO> readOutcomes(Database& database, std::int64_t goal);

/// A list that can take some more outcomes without copying these.
SharedArray<GoalOutcomeDTO> withRoom(std::vector<GoalOutcomeDTO> outcomes);

/// Below the number of every outcome.
inline constexpr std::int64_t beforeAllOutcomes = std::numeric_limits<std::int64_t>::min();

/// Adds the outcomes of a goal whose numbers are above `last` to `outcomes`, in their order, and
/// returns the number of the last one, or `last`.
std::int64_t readOutcomesAbove(Database& database, std::int64_t goal, std::int64_t last,
                               std::vector<GoalOutcomeDTO>& outcomes);

/// Records outcomes; several with one statement, because preparing it takes most of the time.
class OutcomeInsertion {
 public:
  explicit OutcomeInsertion(Database& database);

  /// Records an outcome after all others of its goal. Throws a `StoreError` that names table and
  /// row when another program has changed the store so that it has no free number for another
  /// outcome.
  /// - Returns: the number of the outcome.
  std::int64_t append(std::int64_t goal, const GoalOutcomeDTO& outcome);

 private:
  Database& database_;
  Statement insert_;
  std::int64_t numbersLeft_ = 0;
};

/// Records the outcomes of a document that are not recorded yet, in the document's order.
///
/// An outcome is already recorded when the goal has an outcome with the same id. If a document uses
/// an id several times, its first use corresponds to the first record with that id, and so on; so
/// importing a document twice adds nothing, and a document always comes out as it went in. Records
/// never change: where the document differs from a record, the record stays.
/// - Returns: the indices of the document's outcomes that were skipped because they differ.
std::vector<std::size_t> mergeOutcomes(Database& database, std::int64_t goal,
                                       const SharedArray<GoalOutcomeDTO>& outcomes);

/// Those of these ids that recorded outcomes of the goal have, in their order.
std::vector<std::string> recordedAmong(Database& database, std::int64_t goal,
                                       const std::vector<std::string>& outcomeIDs);

/// Finds the record that an earlier try to record an outcome has left.
///
/// - Parameter outcome: the outcome to record. The record may have another date.
/// - Returns: the record; none when there is no outcome with that id. Throws a `StoreError` when
///   there is one that belongs to another goal or has other content.
std::optional<GoalOutcomeDTO> recordedBefore(Database& database, std::int64_t goal,
                                             const GoalOutcomeDTO& outcome);

}  // namespace vemra::desk
