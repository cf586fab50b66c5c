#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"

#include <functional>
#include <string>

namespace vemra::inspect {

/// Draws what a view graph shows, with its state, to a PNG file as high as the page.
///
/// The graph has no renderer afterwards. Throws a `std::runtime_error` that says why not.
using DrawPicture = std::function<void(ui::ViewGraph& graph, const std::string& path)>;

/// How this build draws pictures; empty in a build without the window, which draws none.
DrawPicture pictureDrawer();

}  // namespace vemra::inspect
