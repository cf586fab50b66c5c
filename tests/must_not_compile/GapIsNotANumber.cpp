#include "VemraGoalSurface/presentation/GoalGapPresentation.hpp"

void tryToExplainANumber() {
  static_cast<void>(vemra::GoalGapPresentation::text(vemra::GoalPathGap::noTargetPerson));
#ifdef MUST_NOT_COMPILE
  static_cast<void>(vemra::GoalGapPresentation::text(0));
#endif
}
