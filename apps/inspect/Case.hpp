#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/ui/Environment.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// \file
/// What `vemra-inspect` is asked to do: a result, what it is shown in, and what is done to it.

namespace vemra::inspect {

/// \name Steps
/// What a user, or the host, does to the screen. Identifiers and titles match byte for byte.
/// @{

/// Presses what has the identifier.
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

/// The host hands in a new result.
struct NewResult {
  std::shared_ptr<const GetGoalSnapshotResponse> result;  ///< shared, to keep the other steps small
};
/// @}

using Step = std::variant<PressIdentifier, PressTitle, Select, Type, Submit, NewResult>;

/// A case document, read and found to be sound.
struct Case {
  GetGoalSnapshotResponse result;
  ui::Environment environment;
  std::vector<Step> steps;
};

/// Reads a case document. `file` is its name in errors.
///
/// `result` is required. `locale` and `timeZone` are by default those of `defaults`; `strings`, the
/// default strings table, is empty; `steps` are none. Throws a `documents::DocumentError` for
/// whatever is not a case document, an unknown locale or time zone, a step of no known form, and
/// two keys of `strings` that are canonically equal.
Case readCase(std::string_view text, const std::string& file, ui::Environment defaults);

}  // namespace vemra::inspect
