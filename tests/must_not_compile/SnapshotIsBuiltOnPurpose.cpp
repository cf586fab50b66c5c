#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

#include <utility>

void tryToTurnAnAnswerIntoOne(vemra::GetGoalSnapshotResponse response) {
  vemra::GoalResultSnapshotV1 saidSo(std::move(response));
#ifdef MUST_NOT_COMPILE
  vemra::GoalResultSnapshotV1 inPassing = vemra::GetGoalSnapshotResponse{};
#endif
}
