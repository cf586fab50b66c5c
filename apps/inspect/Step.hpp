#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <variant>

namespace vemra::inspect {

/// \name Steps
/// The acts of a user or of the host. Identifiers and titles match byte for byte.
/// @{

/// Presses the element with this identifier.
struct PressIdentifier {
  std::string identifier;
};

/// Presses a button by its shown title; `index` counts the buttons of that title in tree order,
/// disabled ones included.
struct PressTitle {
  std::string title;
  std::size_t index = 0;
};

/// Chooses in a picker.
struct Select {
  std::string identifier;
  GoalOutcomeValue value;
};

/// Replaces the whole text of a field.
struct Type {
  std::string identifier;
  std::string text;
};

/// Presses Return in a field.
struct Submit {
  std::string identifier;
};

/// The host shows a new result.
struct NewResult {
  std::shared_ptr<const GetGoalSnapshotResponse> result;  ///< shared, to keep the other steps small
};
/// @}

using Step = std::variant<PressIdentifier, PressTitle, Select, Type, Submit, NewResult>;

}  // namespace vemra::inspect
