#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "tests/RecordBuilders.hpp"

#include <string>
#include <utility>
#include <vector>

/// \file
/// Recording of outcomes in hosts without a store.

namespace vemra {

/// Appends an outcome to the result.
inline void appendOutcome(GetGoalSnapshotResponse& result, GoalOutcomeDTO outcome) {
  std::vector<GoalOutcomeDTO> outcomes(result.outcomes.begin(), result.outcomes.end());
  outcomes.push_back(std::move(outcome));
  result.outcomes = std::move(outcomes);
}

/// Appends the recorded outcome to the result. The id of the first outcome is "o1".
inline void append(GetGoalSnapshotResponse& result, const GoalOutcomeRecordingInput& input) {
  appendOutcome(result, build::outcome("o" + std::to_string(result.outcomes.size() + 1),
                                       input.subjectKind(), input.subjectRef(), input.outcome(),
                                       input.note(), input.correctsOutcomeID()));
}

}  // namespace vemra
