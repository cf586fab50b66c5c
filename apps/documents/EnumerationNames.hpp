#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

/// \file
/// The names of the engine's enumerations in documents; each list is in index order.

namespace vemra::documents {

inline constexpr std::array<std::string_view, 4> statusNames{"active", "paused", "reached",
                                                             "abandoned"};
inline constexpr std::array<std::string_view, 3> priorityNames{"normal", "high", "low"};

/// The reasons; the first three have fields.
enum class WhyKind : std::size_t { evidence, connection, sharedActivity, nameMatch, generic };
inline constexpr std::array<std::string_view, 5> whyKindNames{
    "evidence", "connection", "sharedActivity", "nameMatch", "generic"};

/// The engine's own names for the cases of a list.
template <class Enumeration, std::size_t count>
std::array<std::string_view, count> caseNames(const std::array<Enumeration, count>& cases) {
  std::array<std::string_view, count> names;
  for (std::size_t i = 0; i < count; ++i) names[i] = caseName(cases[i]);
  return names;
}
inline const auto subjectKindNames =
    caseNames(std::array{GoalOutcomeSubjectKind::person, GoalOutcomeSubjectKind::path});
inline const auto outcomeValueNames = caseNames(allGoalOutcomeValues);

/// The name of a case; its value is its place in the list.
template <class Enumeration>
std::string_view nameIn(std::span<const std::string_view> names, Enumeration value) {
  return names[static_cast<std::size_t>(value)];
}

}  // namespace vemra::documents
