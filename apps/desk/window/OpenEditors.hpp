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
  std::optional<std::string> subjectRef;  ///< the outcome's subject
  std::string noteIdentifier;             ///< of the field for the note; "" when there is none
};

/// The open editors of a goal's screen, in the order of the screen; also those in rows that are not
/// in view. Costs a walk over the elements outside the rows, and over the rows with state, so it
/// does not grow with the list.
///
/// Main thread only; not during an event of the graph.
std::vector<OpenEditor> openEditors(ui::ViewGraph& graph);

}  // namespace vemra::desk
