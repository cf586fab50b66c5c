#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"

#include <string>
#include <utility>
#include <vector>

/// \file
/// What hosts without a store do when an outcome is recorded.

namespace vemra {

/// Puts an outcome behind those that the result holds.
inline void appendOutcome(GetGoalSnapshotResponse& result, GoalOutcomeDTO outcome) {
  std::vector<GoalOutcomeDTO> outcomes(result.outcomes.begin(), result.outcomes.end());
  outcomes.push_back(std::move(outcome));
  result.outcomes = std::move(outcomes);
}

/// Puts what was recorded behind the outcomes of the result: "o1" is the first one's id.
inline void append(GetGoalSnapshotResponse& result, const GoalOutcomeRecordingInput& input) {
  GoalOutcomeDTO outcome;
  outcome.id = "o" + std::to_string(result.outcomes.size() + 1);
  outcome.subjectKind = input.subjectKind;
  outcome.subjectRef = input.subjectRef;
  outcome.value = input.outcome;
  outcome.note = input.note;
  outcome.correctsOutcomeID = input.correctsOutcomeID;
  appendOutcome(result, std::move(outcome));
}

}  // namespace vemra
