#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/desk/store/Database.hpp"

#include <cstdint>

namespace vemra::desk {

/// The outcomes of a goal that a screen needs: of each subject that it shows, at least the last
/// one.
struct ShownOutcomes {
  SharedArray<GoalOutcomeDTO> outcomes;  ///< in the order in which they were recorded
  std::int64_t last;                     ///< the number of the goal's last outcome, shown or not
  bool areAll;                           ///< whether these are all outcomes of the goal
};

/// The number of outcomes of a goal up to which a screen gets all of them: reading a few is as fast
/// as searching for the last one of each subject. With more people than this, it is their number.
inline constexpr std::size_t fewOutcomes = 500;

/// Reads the outcomes that a screen needs for these people and paths. Call it inside a transaction.
///
/// A long history costs nothing: with more than a few outcomes, an index finds the last one of each
/// subject. Two references with other bytes may be one text. If that of the outcome is not ASCII, it
/// is in an index of its own: the last outcome of each of these is read, whether its subject is
/// shown or not. If only that of the subject is not ASCII, the search is repeated with its ASCII
/// form (`equivalentASCII`).
///
/// - Parameter schemaVersion: of the store; one of version 1 lacks the indexes, so all are read.
ShownOutcomes readShownOutcomes(Database& database, std::int64_t goal,
                                const GetGoalSnapshotResponse& shown, int schemaVersion);

}  // namespace vemra::desk
