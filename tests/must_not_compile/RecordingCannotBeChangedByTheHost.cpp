#include "VemraGoalSurface/GoalResultView.hpp"

void tryToListen() {
  vemra::GoalResultView::OnRecordOutcome onRecordOutcome;
  onRecordOutcome = [](const vemra::GoalOutcomeRecordingInput&) {};
#ifdef MUST_NOT_COMPILE
  onRecordOutcome = [](vemra::GoalOutcomeRecordingInput&) {};
#endif
}
