#pragma once

#include <ostream>
#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace vemra::commandline {

/// A command line that asks for nothing to be done: the exit code and what is to be said.
struct Farewell {
  int exitCode = 0;
  std::string output;      ///< for standard output
  std::string diagnostic;  ///< for standard error
};

/// What is said where the parser ended by throwing: 0 and the help that was asked for, or 2 and
/// what is wrong with the command line.
Farewell farewellOf(const CLI::App& app, const CLI::ParseError& error);

/// Says it. Returns the exit code.
int say(const Farewell& farewell, std::ostream& output, std::ostream& diagnostics);

}  // namespace vemra::commandline
