#pragma once

#include <string>

namespace vemra::commandline {

/// The version of the program, from the repository's file VERSION: "1.2.3".
std::string version();

}  // namespace vemra::commandline
