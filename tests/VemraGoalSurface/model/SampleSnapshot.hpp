#pragma once

#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "tests/VemraGoalEngine/SampleRecords.hpp"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vemra::sample {

/// A snapshot with one record of each kind, in storage of its own.
inline GoalResultSnapshotV1 snapshot(const std::string& accent = composed) {
  return GoalResultSnapshotV1(response(accent));
}

/// A snapshot of which only the recorded outcomes matter.
inline GoalResultSnapshotV1 snapshotWithOutcomes(std::vector<GoalOutcomeDTO> outcomes) {
  GetGoalSnapshotResponse answer;
  answer.outcomes = std::move(outcomes);
  return GoalResultSnapshotV1(std::move(answer));
}

/// An outcome of which only the id and the subject matter.
inline GoalOutcomeDTO outcomeAbout(std::string id, GoalOutcomeSubjectKind kind,
                                   std::optional<std::string> ref) {
  GoalOutcomeDTO outcome;
  outcome.id = std::move(id);
  outcome.subjectKind = kind;
  outcome.subjectRef = std::move(ref);
  return outcome;
}

}  // namespace vemra::sample
