#pragma once

#include <cstdint>

namespace vemra {

/// Why a result proposes no people.
///
/// Compares by case, and `std::hash` of it follows the case's index.
enum class GoalPeopleGap : std::uint8_t {
  noEvidenceYet,                ///< the engine has considered no evidence
  evidenceButNoRelevantPeople,  ///< there is evidence, but it points at no person
};

}  // namespace vemra
