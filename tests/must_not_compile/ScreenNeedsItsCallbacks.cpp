#include "VemraGoalSurface/GoalResultView.hpp"

vemra::GoalResultView tryToShow(const vemra::GoalResultSnapshotV1& snapshot) {
#ifdef MUST_NOT_COMPILE
  return vemra::GoalResultView(snapshot);
#endif
  return vemra::GoalResultView(snapshot, {}, {}, {}, {});
}
