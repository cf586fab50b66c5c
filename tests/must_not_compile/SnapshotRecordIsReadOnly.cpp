#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

void tryToRename(vemra::GoalResultSnapshotV1& snapshot) {
  static_cast<void>(snapshot.goal().title);
#ifdef MUST_NOT_COMPILE
  snapshot.goal().title = "renamed";
#endif
}
