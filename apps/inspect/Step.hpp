#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace vemra::inspect {

/// \name Steps
/// The acts of a user or of the host. Identifiers and titles match byte for byte.
/// @{

/// Presses the element with this identifier. Here and below, `index` counts the elements that share
/// the identifier, in tree order.
struct PressIdentifier {
  std::string identifier;
  std::size_t index = 0;
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
  std::size_t index = 0;
};

/// Replaces the whole text of a field.
struct Type {
  std::string identifier;
  std::string text;
  std::size_t index = 0;
};

/// Presses Return in a field.
struct Submit {
  std::string identifier;
  std::size_t index = 0;
};

/// The host shows a new result: on the current screen, on another existing screen, or on a new one.
struct NewResult {
  std::shared_ptr<const GetGoalSnapshotResponse> result;  ///< shared, to keep the other steps small
  std::optional<std::size_t> screen = std::nullopt;       ///< its number; nil: the current screen
};

/// The host shows another existing screen, unchanged.
struct ShowScreen {
  std::size_t screen;
};

/// Compares the next call of a callback with an expected one. The calls are compared in their
/// order, each once.
struct ExpectCall {
  std::string call;  ///< as `recording::callText` writes it
};
/// @}

using Step = std::variant<PressIdentifier, PressTitle, Select, Type, Submit, NewResult, ShowScreen,
                          ExpectCall>;

}  // namespace vemra::inspect
