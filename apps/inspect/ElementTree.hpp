#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"
#include "apps/documents/JsonWriter.hpp"

namespace vemra::inspect {

/// Writes the tree of a screen as the next value, with one object for each element. Rows that are
/// not shown are described one after the other, and none is kept.
///
/// An object has `element` (the kind), `id` for a row, the keys of its kind, `modifiers` in the
/// order in which they were applied, and `children` for a kind that can have children. A composite
/// with properties is an object with the properties as its keys. For a composite without
/// properties, its content is written in its place. An empty screen is written as null.
void writeElementTree(documents::JsonWriter& out, ui::ViewGraph& graph);

}  // namespace vemra::inspect
