#include "VemraGoalSurface/GoalOutcomeRecordingControl.hpp"

using Control = vemra::GoalOutcomeRecordingControl;

void tryToClose(const vemra::ui::LocalState<Control::State>& state) {
  state.set(&Control::State::isEditing, false);
#ifdef MUST_NOT_COMPILE
  state->isEditing = false;
#endif
}
