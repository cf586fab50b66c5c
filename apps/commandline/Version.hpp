#pragma once

#include <string>

namespace CLI {
class App;
}

namespace vemra::commandline {

/// The version of what was built, as in the repository's file VERSION: "1.2.3".
std::string version();

/// Offers `--version`, which writes the program's name and version on one line and ends with 0.
void offerVersion(CLI::App& app);

}  // namespace vemra::commandline
