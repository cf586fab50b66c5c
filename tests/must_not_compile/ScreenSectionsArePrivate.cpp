#include "VemraGoalSurface/GoalResultView.hpp"

void tryToTakeApart(const vemra::GoalResultView& screen) {
  static_cast<void>(screen.body({}));
#ifdef MUST_NOT_COMPILE
  static_cast<void>(screen.peopleSection());
#endif
}
