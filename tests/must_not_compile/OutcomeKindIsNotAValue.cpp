#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"

void tryToLabelAKind() {
  using vemra::GoalOutcomeRecordingFormLogic::label;
  static_cast<void>(label(vemra::GoalOutcomeValue::reachedOut));
#ifdef MUST_NOT_COMPILE
  static_cast<void>(label(vemra::GoalOutcomeSubjectKind::person));
#endif
}
