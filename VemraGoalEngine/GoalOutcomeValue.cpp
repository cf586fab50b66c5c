#include "VemraGoalEngine/GoalOutcomeValue.hpp"

namespace vemra {

std::string_view caseName(GoalOutcomeValue value) {
  switch (value) {
    case GoalOutcomeValue::reachedOut:
      return "reachedOut";
    case GoalOutcomeValue::invited:
      return "invited";
    case GoalOutcomeValue::introduced:
      return "introduced";
    case GoalOutcomeValue::helped:
      return "helped";
    case GoalOutcomeValue::wasUseful:
      return "wasUseful";
    case GoalOutcomeValue::notAFit:
      return "notAFit";
    case GoalOutcomeValue::noActionTaken:
      return "noActionTaken";
    case GoalOutcomeValue::somethingElse:
      return "somethingElse";
  }
  return "";
}

std::string_view caseName(GoalOutcomeSubjectKind kind) {
  switch (kind) {
    case GoalOutcomeSubjectKind::person:
      return "person";
    case GoalOutcomeSubjectKind::path:
      return "path";
  }
  return "";
}

}  // namespace vemra
