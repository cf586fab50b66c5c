#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <string>

namespace vemra::desk {

inline GoalOutcomeDTO outcome(std::string id, std::string subjectRef, GoalOutcomeValue value) {
  GoalOutcomeDTO outcome;
  outcome.id = std::move(id);
  outcome.subjectRef = std::move(subjectRef);
  outcome.value = value;
  return outcome;
}

/// A goal with one person and the outcomes given.
inline GetGoalSnapshotResponse goal(std::string id, std::string title,
                                    SharedArray<GoalOutcomeDTO> outcomes = {}) {
  GetGoalSnapshotResponse result;
  result.goal.id = std::move(id);
  result.goal.title = std::move(title);
  result.people = {{"p1", "Ada", GoalWhyDTO::connection(2), {"ev9"}}};
  result.coverage = {{"Mail"}, 3, "2025-01-05T10:00:00Z"};
  result.outcomes = std::move(outcomes);
  return result;
}

}  // namespace vemra::desk
