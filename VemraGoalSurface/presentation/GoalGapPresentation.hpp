#pragma once

#include "VemraGoalSurface/model/GoalPathGap.hpp"
#include "VemraGoalSurface/model/GoalPeopleGap.hpp"
#include "VemraPlatform/Export.hpp"

#include <string_view>

/// The sentences that stand where a list is empty.
///
/// Fixed English, shown as it is and never looked up in a strings table. Pure, for any thread.
namespace vemra::GoalGapPresentation {

/// Why no people are proposed. Without any evidence the sentence is the general one; the sentence
/// about nothing pointing at a person is for evidence that was there.
VEMRA_EXPORT std::string_view text(GoalPeopleGap gap);

/// Why no path is shown.
VEMRA_EXPORT std::string_view text(GoalPathGap gap);

}  // namespace vemra::GoalGapPresentation
