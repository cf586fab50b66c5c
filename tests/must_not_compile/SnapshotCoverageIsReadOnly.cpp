#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

void tryToCountOneMore(vemra::GoalResultSnapshotV1& snapshot) {
  static_cast<void>(snapshot.coverage().evidenceCount);
#ifdef MUST_NOT_COMPILE
  ++snapshot.coverage().evidenceCount;
#endif
}
