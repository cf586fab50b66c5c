#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vemra::desk {

/// An editor of an outcome that a person has opened and neither saved nor cancelled.
struct OpenEditor {
  GoalOutcomeSubjectKind subjectKind = GoalOutcomeSubjectKind::person;
  std::optional<std::string> subjectRef;  ///< whom the outcome is about
};

/// The open editors of a goal's screen, in the order of the screen; also those in rows that are not
/// in view. Costs a walk over the elements outside the rows, and over the rows that hold state: not
/// a step for each person of a long list.
///
/// Main thread only; not during an event of the graph.
std::vector<OpenEditor> openEditors(ui::ViewGraph& graph);

}  // namespace vemra::desk
