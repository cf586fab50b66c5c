#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"

void tryToOverwrite(vemra::GoalOutcomeRecordingInput& input,
                    const vemra::GoalOutcomeRecordingInput& other) {
  vemra::GoalOutcomeRecordingInput copy = other;
#ifdef MUST_NOT_COMPILE
  input = copy;
#endif
}
