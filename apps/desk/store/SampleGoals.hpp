#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <vector>

namespace vemra::desk {

/// The sample goals, built into the program from the documents in `samples/`.
///
/// Together they show every face of a goal's screen: to look around in, not to keep.
std::vector<GetGoalSnapshotResponse> sampleGoals();

}  // namespace vemra::desk
