#pragma once

#include "VemraPlatform/page/Node.hpp"

#include <string>
#include <vector>

/// \file
/// How a text or a control looks on a terminal. Internal to `Viewport`.

namespace vemra::testing {

/// The lines of a text or a control, none wider than `most` columns where its parts can be broken.
std::vector<std::string> linesOfLeaf(const page::Node& leaf, int most, bool hasFocus);

}  // namespace vemra::testing
