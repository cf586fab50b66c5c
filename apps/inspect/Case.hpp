#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "apps/inspect/Step.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// \file
/// A case document, the input of `vemra-inspect`: a result, the environment in which it is shown,
/// and the steps to carry out on the screen.

namespace vemra::inspect {

/// The program that recorded a case.
struct Recorded {
  std::string program, version;
  bool isMasked = false;
};

/// The content of a valid case document.
struct Case {
  GetGoalSnapshotResponse result;
  ui::Environment environment;
  std::vector<Step> steps;
  std::optional<Recorded> recorded;  ///< nil for a case that a person or a script wrote
};

/// Reads a case document. `file` is its name in errors.
///
/// Only `result` is required. Without `locale` and `timeZone` the case has those of `defaults`;
/// without `strings` its strings table is empty; without `steps` it has none. Throws a
/// `documents::DocumentError` for a text that is not a case document, an unknown locale or time
/// zone, a step of no known form, and two keys of `strings` that are canonically equal. When
/// another version recorded the case, the error's line ends with that version.
Case readCase(std::string_view text, const std::string& file, ui::Environment defaults);

/// The same with the text of a file, which is also its name in errors; "-" for standard input.
Case readCaseFile(const std::string& path, ui::Environment defaults);

/// "recorded by vemra-desk 1.2.3, this is version 1.3.0"; nil when this version recorded the case,
/// or the case was not recorded.
std::optional<std::string> otherVersion(const std::optional<Recorded>& recorded);

}  // namespace vemra::inspect
