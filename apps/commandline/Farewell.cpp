#include "apps/commandline/Farewell.hpp"

namespace vemra::commandline {

int say(const Farewell& farewell, std::ostream& output, std::ostream& diagnostics) {
  output << farewell.output << std::flush;
  diagnostics << farewell.diagnostic;
  return farewell.exitCode;
}

}  // namespace vemra::commandline
