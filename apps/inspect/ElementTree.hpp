#pragma once

#include "VemraTesting/Screen.hpp"
#include "apps/documents/JsonWriter.hpp"

namespace vemra::inspect {

/// Writes the tree of a screen as the next value: an object an element.
///
/// Each has `element` (its kind), `id` when it is a row, its own keys, `modifiers` in the order in
/// which they were applied, and `children` when it is of a kind that holds others. A composite that
/// tells its properties is an element with these as its keys; another one is written as what it
/// shows. Null when nothing is shown.
void writeElementTree(documents::JsonWriter& out, const testing::Screen& screen);

}  // namespace vemra::inspect
