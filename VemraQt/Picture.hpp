#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"

#include <QImage>
#include <QSize>

namespace vemra::qt {

/// Draws the view as a window of that size would show it, without opening a window. With a height
/// of 0 the picture is as high as the page, up to 16,000 pixels. Needs a QApplication; main thread
/// only.
VEMRA_EXPORT QImage picture(ui::View root, ui::Environment environment, QSize size);

/// Draws the tree of a graph that the caller owns, with its state. The graph has no renderer
/// afterwards. Both functions throw what a description throws.
VEMRA_EXPORT QImage picture(ui::ViewGraph& graph, QSize size);

}  // namespace vemra::qt
