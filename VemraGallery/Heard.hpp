#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace vemra::gallery {

/// What assistive technology reads of a view in a window: a line an object, in the order in which it stands in
/// the accessible tree, indented by two spaces a level.
///
///     heading "Find a design lead"
///     push button "Save", unavailable
///
/// At most `limit` lines; then one that counts the others. The graph has no renderer afterwards. Needs a
/// `QApplication`.
std::vector<std::string> heard(ui::ViewGraph& graph, std::size_t limit);

}  // namespace vemra::gallery
