#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

void tryToEmptyTheList(vemra::GoalResultSnapshotV1& snapshot) {
  static_cast<void>(snapshot.people().size());
#ifdef MUST_NOT_COMPILE
  snapshot.people() = {};
#endif
}
