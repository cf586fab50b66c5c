#pragma once

#include "VemraPlatform/page/Node.hpp"

#include <string>
#include <vector>

/// \file
/// Draws a text or a control in character cells. Internal to `Viewport`.

namespace vemra::testing {

/// The lines of a text or a control, at most `most` columns wide if its parts can be broken.
std::vector<std::string> linesOfLeaf(const page::Node& leaf, int most, bool hasFocus);

}  // namespace vemra::testing
