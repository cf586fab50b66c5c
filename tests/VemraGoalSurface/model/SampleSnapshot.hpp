#pragma once

#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "tests/RecordBuilders.hpp"
#include "tests/VemraGoalEngine/SampleRecords.hpp"

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

}  // namespace vemra::sample
