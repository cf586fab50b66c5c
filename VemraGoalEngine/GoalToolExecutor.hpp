#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/task/Task.hpp"

#include <string>

namespace vemra {

/// The engine's door: one object, shared by reference and supplied by the host application.
///
/// A host (or a test) takes the engine's place by overriding the query.
class VEMRA_EXPORT GoalToolExecutor {
 public:
  GoalToolExecutor() = default;
  GoalToolExecutor(const GoalToolExecutor&) = delete;
  GoalToolExecutor& operator=(const GoalToolExecutor&) = delete;
  virtual ~GoalToolExecutor() = default;

  /// Asks for the current result of a goal.
  ///
  /// `goalID` goes to the engine byte for byte. The task may resume on any thread; whatever the
  /// engine throws comes out of the task.
  virtual task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string goalID) = 0;
};

}  // namespace vemra
