#pragma once

#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"

#include <optional>
#include <string>

#include <QString>

namespace vemra::desk {

/// The subject of an outcome in words: the name of the person in this goal, the reference where the
/// goal has no name for it, or the path to that person.
QString subjectName(const GoalResultSnapshotV1& goal, GoalOutcomeSubjectKind kind,
                    const std::optional<std::string>& subjectRef);

}  // namespace vemra::desk
