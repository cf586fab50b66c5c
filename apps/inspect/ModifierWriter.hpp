#pragma once

#include "VemraPlatform/ui/Modifier.hpp"
#include "apps/documents/JsonWriter.hpp"

#include <vector>

namespace vemra::inspect {

/// Writes modifiers as an array of objects, in the order in which they were applied.
void writeModifiers(documents::JsonWriter& out, const std::vector<ui::Modifier>& modifiers);

}  // namespace vemra::inspect
