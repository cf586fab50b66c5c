#pragma once

#include <cstdint>

namespace vemra {

/// Why a result proposes no people.
///
/// Compares by case, and `std::hash` of it follows the case's index.
enum class GoalPeopleGap : std::uint8_t {
  noEvidenceYet,                ///< no evidence has been considered at all
  evidenceButNoRelevantPeople,  ///< there is evidence, and it points at nobody
};

}  // namespace vemra
