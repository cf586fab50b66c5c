#include "VemraGoalSurface/model/GoalResultProjectionReader.hpp"

void tryToLendAnEngine(vemra::GoalToolExecutor& executor,
                       std::shared_ptr<vemra::GoalToolExecutor> shared) {
  using vemra::GoalResultProjectionReader::makeSnapshot;
  auto held = makeSnapshot(shared, "goal");
#ifdef MUST_NOT_COMPILE
  auto lent = makeSnapshot(executor, "goal");
#endif
}
