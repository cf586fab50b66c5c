#pragma once

#include <ostream>
#include <string>

namespace vemra::commandline {

/// The texts and the exit code of a program that ends after reading its command line: for help, the
/// version or a mistake.
struct EarlyExit {
  int exitCode = 0;        ///< 0 for help and the version, 2 for a mistake
  std::string output;      ///< for standard output
  std::string diagnostic;  ///< for standard error
};

/// Writes both texts. Returns the exit code.
int print(const EarlyExit& earlyExit, std::ostream& output, std::ostream& diagnostics);

}  // namespace vemra::commandline
