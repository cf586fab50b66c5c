#pragma once

#include <cstdint>

namespace vemra {

/// Why a result proposes no path.
///
/// Compares by case, and `std::hash` of it follows the case's index.
enum class GoalPathGap : std::uint8_t {
  noTargetPerson,     ///< the goal names no person to find a path to
  noConnectionFound,  ///< the goal names a person, and the engine found no path
};

}  // namespace vemra
