#pragma once

#include "VemraPlatform/Export.hpp"

#include <array>
#include <cstdint>
#include <string_view>

namespace vemra {

/// The outcome of a suggestion. The order is that of the choices on the screen.
enum class GoalOutcomeValue : std::uint8_t {
  reachedOut,
  invited,
  introduced,
  helped,
  wasUseful,
  notAFit,
  noActionTaken,
  somethingElse,
};

/// All outcome values, in index order.
inline constexpr std::array<GoalOutcomeValue, 8> allGoalOutcomeValues{
    GoalOutcomeValue::reachedOut,    GoalOutcomeValue::invited,       GoalOutcomeValue::introduced,
    GoalOutcomeValue::helped,        GoalOutcomeValue::wasUseful,     GoalOutcomeValue::notAFit,
    GoalOutcomeValue::noActionTaken, GoalOutcomeValue::somethingElse,
};

/// The kind of subject that an outcome is about. The engine may add kinds at the end.
enum class GoalOutcomeSubjectKind : std::uint8_t { person, path };

/// The name of a case in documents and stores ("wasUseful"); "" for a value that is not a case.
VEMRA_EXPORT std::string_view caseName(GoalOutcomeValue value);
VEMRA_EXPORT std::string_view caseName(GoalOutcomeSubjectKind kind);

}  // namespace vemra
