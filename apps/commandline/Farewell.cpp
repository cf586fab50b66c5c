#include "apps/commandline/Farewell.hpp"

#include <sstream>

#include <CLI/CLI.hpp>

namespace vemra::commandline {

Farewell farewellOf(const CLI::App& app, const CLI::ParseError& error) {
  std::ostringstream output;
  std::ostringstream diagnostic;
  const bool done = app.exit(error, output, diagnostic) == 0;
  return {done ? 0 : 2, output.str(), diagnostic.str()};
}

int say(const Farewell& farewell, std::ostream& output, std::ostream& diagnostics) {
  output << farewell.output << std::flush;
  diagnostics << farewell.diagnostic;
  return farewell.exitCode;
}

}  // namespace vemra::commandline
