#include "VemraGoalSurface/GoalResultView.hpp"

vemra::GoalResultView tryToListen(const vemra::GoalResultSnapshotV1& snapshot) {
#ifdef MUST_NOT_COMPILE
  return vemra::GoalResultView(snapshot, {}, {}, [](const std::string& pathID) {}, {});
#endif
  return vemra::GoalResultView(snapshot, {}, {}, [](const vemra::GoalPathCandidateDTO&) {}, {});
}
