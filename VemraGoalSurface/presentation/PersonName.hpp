#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <string>

namespace vemra {

/// The title of a person's button: the name byte for byte, or a fixed text without one.
inline std::string shownName(const GoalPersonCandidateDTO& person) {
  return person.displayName.value_or("Unnamed person");
}

}  // namespace vemra
