#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "apps/inspect/Step.hpp"

#include <string>
#include <string_view>
#include <vector>

/// \file
/// What `vemra-inspect` is asked to do: a result, what it is shown in, and what is done to it.

namespace vemra::inspect {

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
