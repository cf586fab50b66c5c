#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <vector>

namespace vemra::desk {

/// The sample goals, built into the program from the documents in `samples/`.
///
/// Together they show every variant of a goal's screen. They are for exploring, not for keeping.
std::vector<GetGoalSnapshotResponse> sampleGoals();

}  // namespace vemra::desk
