#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/task/Task.hpp"

#include <string>

namespace vemra {

/// The interface to the goal engine: one object, supplied by the host application and shared by
/// reference.
///
/// A host (or a test) implements it by overriding the query.
class VEMRA_EXPORT GoalToolExecutor {
 public:
  GoalToolExecutor() = default;
  GoalToolExecutor(const GoalToolExecutor&) = delete;
  GoalToolExecutor& operator=(const GoalToolExecutor&) = delete;
  virtual ~GoalToolExecutor() = default;

  /// Queries the current result of a goal.
  ///
  /// `goalID` is passed to the engine byte for byte. The task may resume on any thread; it rethrows
  /// any exception of the engine.
  virtual task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string goalID) = 0;
};

}  // namespace vemra
