#pragma once

#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

#include <optional>
#include <string>

#include <QString>

namespace vemra::desk {

/// The subject of an outcome in words: the name of the person in this goal, "Unnamed person" where
/// the goal has none, as on the screen, or the path to that person.
QString subjectName(const GoalResultSnapshotV1& goal, GoalOutcomeSubjectKind kind,
                    const std::optional<std::string>& subjectRef);

}  // namespace vemra::desk
