#include "apps/commandline/Version.hpp"

#include <CLI/CLI.hpp>

namespace vemra::commandline {

std::string version() {
  return VEMRA_VERSION;
}

void offerVersion(CLI::App& app) {
  app.set_version_flag("--version", app.get_name() + " " + version(), "Print the version and exit");
}

}  // namespace vemra::commandline
