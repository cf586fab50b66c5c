#include "VemraGoalSurface/model/GoalResultProjectionReader.hpp"

#include <utility>

namespace vemra::GoalResultProjectionReader {

task::Task<GoalResultSnapshotV1> makeSnapshot(std::shared_ptr<GoalToolExecutor> executor,
                                              std::string goalID) {
  GetGoalSnapshotResponse response;
  {
    // Destroyed at the end of this block, the query first. The coroutine's own arguments live until
    // its frame is destroyed, which may be long after the awaiting caller has the snapshot.
    const std::shared_ptr<GoalToolExecutor> asked = std::move(executor);
    task::Task<GetGoalSnapshotResponse> query = asked->getGoalSnapshot(std::move(goalID));
    response = co_await std::move(query);
  }
  co_return GoalResultSnapshotV1(std::move(response));
}

}  // namespace vemra::GoalResultProjectionReader
