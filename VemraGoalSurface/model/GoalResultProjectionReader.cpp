#include "VemraGoalSurface/model/GoalResultProjectionReader.hpp"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace vemra::GoalResultProjectionReader {
namespace {

task::Task<GoalResultSnapshotV1> query(std::shared_ptr<GoalToolExecutor> executor,
                                       std::string goalID) {
  GetGoalSnapshotResponse response;
  {
    // Destroyed at the end of this block, the query first. The coroutine's own arguments live until
    // its frame is destroyed, which may be long after the awaiting caller has the snapshot.
    const std::shared_ptr<GoalToolExecutor> asked = std::move(executor);
    task::Task<GetGoalSnapshotResponse> answer = asked->getGoalSnapshot(std::move(goalID));
    response = co_await std::move(answer);
  }
  co_return GoalResultSnapshotV1(std::move(response));
}

}  // namespace

// Not a coroutine: a null executor stops the process in the call that passes it.
task::Task<GoalResultSnapshotV1> makeSnapshot(std::shared_ptr<GoalToolExecutor> executor,
                                              std::string goalID) {
  if (!executor) {
    std::fputs(
        "GoalResultProjectionReader.makeSnapshot: the executor is null. Pass the object that "
        "answers the query; the task shares it until the query has ended.\n",
        stderr);
    std::abort();
  }
  return query(std::move(executor), std::move(goalID));
}

}  // namespace vemra::GoalResultProjectionReader
