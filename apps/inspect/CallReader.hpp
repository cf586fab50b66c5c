#pragma once

#include "VemraRecording/Call.hpp"
#include "apps/documents/JsonReader.hpp"

namespace vemra::inspect {

/// Reads a call in the form in which a report writes it: an object with `callback` and the
/// `argument` of that callback. Only keys of the argument that may be null may be absent.
recording::Call readCall(documents::JsonReader& in);

}  // namespace vemra::inspect
