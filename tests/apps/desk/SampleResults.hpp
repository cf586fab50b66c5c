#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "tests/RecordBuilders.hpp"

#include <string>
#include <utility>

namespace vemra::desk {

inline GoalOutcomeDTO outcome(std::string id, std::string subjectRef, GoalOutcomeValue value) {
  return build::outcome(std::move(id), GoalOutcomeSubjectKind::person, std::move(subjectRef),
                        value);
}

/// A goal with one person and the given outcomes.
inline GetGoalSnapshotResponse goal(std::string id, std::string title,
                                    SharedArray<GoalOutcomeDTO> outcomes = {}) {
  GetGoalSnapshotResponse result;
  result.goal.id = std::move(id);
  result.goal.title = std::move(title);
  result.people = {build::person("p1", "Ada", {"ev9"}, GoalWhyDTO::connection(2))};
  result.coverage = {{"Mail"}, 3, "2025-01-05T10:00:00Z"};
  result.outcomes = std::move(outcomes);
  return result;
}

}  // namespace vemra::desk
