#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "apps/inspect/Step.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// \file
/// What `vemra-inspect` is asked to do: a result, what it is shown in, and what is done to it.

namespace vemra::inspect {

/// What recorded a case.
struct Recorded {
  std::string program, version;
  bool isMasked = false;
};

/// A case document, read and found to be sound.
struct Case {
  GetGoalSnapshotResponse result;
  ui::Environment environment;
  std::vector<Step> steps;
  std::optional<Recorded> recorded;  ///< nil for a case that a person or a script wrote
};

/// Reads a case document. `file` is its name in errors.
///
/// `result` is required. `locale` and `timeZone` are by default those of `defaults`; `strings`, the
/// default strings table, is empty; `steps` are none. Throws a `documents::DocumentError` for
/// whatever is not a case document, an unknown locale or time zone, a step of no known form, and
/// two keys of `strings` that are canonically equal; its line ends with the version that recorded
/// the case where another one did.
Case readCase(std::string_view text, const std::string& file, ui::Environment defaults);

/// "recorded by vemra-desk 1.2.3, this is version 1.3.0"; nil when this version has recorded the
/// case, or none.
std::optional<std::string> otherVersion(const std::optional<Recorded>& recorded);

}  // namespace vemra::inspect
