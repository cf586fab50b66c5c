#pragma once

#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "VemraPlatform/text/TextMap.hpp"
#include "apps/desk/store/GoalListing.hpp"

#include <string>
#include <vector>

#include <QString>

/// \file
/// Sentences for assistive technology about changes that another program has made to the store. The
/// window shows such changes by themselves, where a person may not be reading.

namespace vemra::desk {

/// The ids of outcomes.
using OutcomeIDs = text::TextMap<std::string, bool>;

/// Names the goals that are new, or counts many; "" when there are none.
QString newsOf(const std::vector<GoalListing>& before, const std::vector<GoalListing>& after);

/// Names the outcomes of a goal's result that are new, or counts many; without those whose ids are
/// in `known`. "" when there are none.
QString newsOfOutcomes(const GoalResultSnapshotV1& before, const GoalResultSnapshotV1& after,
                       const OutcomeIDs& known);

/// Names the people of a goal's result who are new and those who are gone, or counts many. Without
/// any: whether another part of the result has changed. "" when only outcomes have changed, or
/// nothing.
QString newsOf(const GoalResultSnapshotV1& before, const GoalResultSnapshotV1& after);

}  // namespace vemra::desk
