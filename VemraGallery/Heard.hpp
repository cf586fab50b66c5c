#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace vemra::gallery {

/// The text that assistive technology gets from a view in a window: one line for each object, in
/// the order of the accessible tree, indented by two spaces for each level.
///
///     static text "Find a design lead"
///     push button "Save", unavailable
///
/// At most `limit` lines; then one that counts the others. The graph has no renderer afterwards.
/// Needs a `QApplication`.
std::vector<std::string> heard(ui::ViewGraph& graph, std::size_t limit);

}  // namespace vemra::gallery
