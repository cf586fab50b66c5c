#include "VemraGoalSurface/GoalResultView.hpp"

void tryToReplace(vemra::GoalResultView& screen, const vemra::GoalResultSnapshotV1& snapshot) {
  screen = vemra::GoalResultView(snapshot, {}, {}, {}, {});
#ifdef MUST_NOT_COMPILE
  screen.snapshot_ = snapshot;
#endif
}
