#include "apps/commandline/EarlyExit.hpp"

namespace vemra::commandline {

int print(const EarlyExit& earlyExit, std::ostream& output, std::ostream& diagnostics) {
  output << earlyExit.output << std::flush;
  diagnostics << earlyExit.diagnostic;
  return earlyExit.exitCode;
}

}  // namespace vemra::commandline
