#pragma once

#include "VemraRecording/Call.hpp"
#include "apps/documents/JsonReader.hpp"

namespace vemra::inspect {

/// Reads a call as a report has it: an object with `callback` and the `argument` of that callback,
/// whose keys are all there but those that may be null.
recording::Call readCall(documents::JsonReader& in);

}  // namespace vemra::inspect
