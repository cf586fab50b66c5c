#pragma once

#include <string>

namespace vemra::commandline {

/// The version of what was built, as in the repository's file VERSION: "1.2.3".
std::string version();

}  // namespace vemra::commandline
