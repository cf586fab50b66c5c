#include "VemraGoalSurface/model/GoalResultProjectionReader.hpp"

#include <utility>

namespace vemra::GoalResultProjectionReader {

task::Task<GoalResultSnapshotV1> makeSnapshot(std::shared_ptr<GoalToolExecutor> executor,
                                              std::string goalID) {
  task::Task<GetGoalSnapshotResponse> query = executor->getGoalSnapshot(std::move(goalID));
  GetGoalSnapshotResponse response = co_await std::move(query);
  co_return GoalResultSnapshotV1(std::move(response));
}

}  // namespace vemra::GoalResultProjectionReader
