#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"

void tryToChangeTheNote(vemra::GoalOutcomeRecordingInput& input) {
  static_cast<void>(input.note());
#ifdef MUST_NOT_COMPILE
  input.note() = "other";
#endif
}
