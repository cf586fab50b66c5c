#pragma once

#include <ostream>
#include <string>

namespace vemra::commandline {

/// What a program writes for a command line that asks for nothing to be done, and its exit code.
struct Farewell {
  int exitCode = 0;        ///< 0 for help and the version, 2 for a mistake
  std::string output;      ///< for standard output
  std::string diagnostic;  ///< for standard error
};

/// Writes the texts of the farewell. Returns the exit code.
int say(const Farewell& farewell, std::ostream& output, std::ostream& diagnostics);

}  // namespace vemra::commandline
