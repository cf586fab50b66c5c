#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/ViewGraph.hpp"
#include "VemraTesting/RenderedTree.hpp"

#include <string>

namespace vemra::testing {

/// The tree as indented text, one line for each element, for people and for files with expected
/// outlines. The format is stable.
///
///     VStack leading 4 .padding(vertical 4)
///       Button "Ada" .buttonStyle(plain) .font(body medium)
///       Text key "Supported path" -> "Möglicher Weg" .font(headline)
///
/// Texts are written by `text::quotedOnOneLine`.
VEMRA_EXPORT std::string outline(const RenderedTree& tree, const ui::ViewGraph& graph);

/// The outline of a graph whose rows need not be described yet: each row is described, written and
/// dropped again, so the tree of all rows is never in memory. The graph may have a renderer or
/// none. Throws what the descriptions throw. Not inside an action of the tree, where the graph
/// describes no row.
VEMRA_EXPORT std::string outline(ui::ViewGraph& graph);

/// One element as a line of an outline, without its children.
VEMRA_EXPORT std::string outlineLine(const ui::Element& element);

}  // namespace vemra::testing
