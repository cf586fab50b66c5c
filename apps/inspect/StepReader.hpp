#pragma once

#include "apps/documents/JsonReader.hpp"
#include "apps/inspect/Step.hpp"

#include <cstddef>

namespace vemra::inspect {

/// Reads one step: an object with one of the keys `press`, `select` (with `value`), `type` (with
/// `text`), `submit`, `result`, `screen` and `call`.
///
/// - Parameter screenCount: the number of screens that the case has so far, at least 1. Increased
///   for a step that shows a result on a new screen.
Step readStep(documents::JsonReader& in, std::size_t& screenCount);

}  // namespace vemra::inspect
