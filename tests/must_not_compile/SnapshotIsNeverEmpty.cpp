#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

void tryToBuildFromNothing() {
  vemra::GoalResultSnapshotV1 fromAnAnswer{vemra::GetGoalSnapshotResponse{}};
#ifdef MUST_NOT_COMPILE
  vemra::GoalResultSnapshotV1 fromNothing;
#endif
}
