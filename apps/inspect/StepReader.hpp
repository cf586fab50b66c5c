#pragma once

#include "apps/documents/JsonReader.hpp"
#include "apps/inspect/Step.hpp"

namespace vemra::inspect {

/// Reads one step: an object with one of the keys `press`, `select` (with `value`), `type` (with
/// `text`), `submit` and `result`.
Step readStep(documents::JsonReader& in);

}  // namespace vemra::inspect
