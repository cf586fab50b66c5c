#pragma once

#include "VemraPlatform/ui/ViewGraph.hpp"

#include <functional>
#include <string>

namespace vemra::inspect {

/// Draws what a view graph shows, with its state, to a PNG file as high as the page.
///
/// The graph has no renderer afterwards. Throws a `std::runtime_error` with the reason when the
/// file cannot be written.
using DrawPicture = std::function<void(ui::ViewGraph& graph, const std::string& path)>;

/// The function that draws pictures; empty in a build without the window, which cannot draw.
DrawPicture pictureDrawer();

}  // namespace vemra::inspect
