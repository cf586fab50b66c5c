#include "VemraGoalEngine/GoalRecords.hpp"

void tryToClearTheNotes(vemra::SharedArray<vemra::GoalOutcomeDTO>& outcomes) {
  for (auto& outcome : outcomes) {
    static_cast<void>(outcome);
#ifdef MUST_NOT_COMPILE
    outcome.note.reset();
#endif
  }
}
