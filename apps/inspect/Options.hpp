#pragma once

#include <optional>
#include <string>
#include <variant>

namespace vemra::inspect {

/// What the command line asks for.
struct Options {
  std::string file;  ///< "-" is standard input
  bool trace = false;
  bool outline = false;
  std::optional<std::string> png;
};

/// A command line that asks for nothing to be done: the exit code and what is to be said.
struct Farewell {
  int exitCode = 0;
  std::string output;      ///< for standard output
  std::string diagnostic;  ///< for standard error
};

/// Whether this build can draw pictures.
enum class Pictures { drawn, notDrawn };

/// Reads the command line. Options may stand before or after the file.
std::variant<Options, Farewell> readOptions(int argumentCount, const char* const* arguments,
                                            Pictures pictures);

}  // namespace vemra::inspect
