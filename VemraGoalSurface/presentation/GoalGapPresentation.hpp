#pragma once

#include "VemraGoalSurface/model/GoalPathGap.hpp"
#include "VemraGoalSurface/model/GoalPeopleGap.hpp"
#include "VemraPlatform/Export.hpp"

#include <string>

/// The sentences that the screen shows instead of an empty list.
///
/// Fixed English, shown unchanged and never looked up in a strings table. Pure, for any thread.
namespace vemra::GoalGapPresentation {

/// Why the engine proposes no people.
VEMRA_EXPORT std::string text(GoalPeopleGap gap);

/// Why no path is shown.
VEMRA_EXPORT std::string text(GoalPathGap gap);

}  // namespace vemra::GoalGapPresentation
