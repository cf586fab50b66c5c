#pragma once

#include "VemraPlatform/page/Geometry.hpp"
#include "apps/commandline/EarlyExit.hpp"

#include <optional>
#include <string>
#include <variant>

namespace vemra::inspect {

/// The options of a command line.
struct Options {
  std::string file;  ///< "-" is standard input
  bool trace = false;
  bool outline = false;
  std::optional<std::string> png;
  std::optional<page::Size> viewport;  ///< in character cells
};

/// The sizes that a viewport may have.
inline constexpr page::Size smallestViewport{20, 5}, largestViewport{500, 200};

/// Whether this build can draw pictures.
enum class Pictures { drawn, notDrawn };

/// Reads the command line. Options may stand before or after the file.
std::variant<Options, commandline::EarlyExit> readOptions(int argumentCount,
                                                          const char* const* arguments,
                                                          Pictures pictures);

}  // namespace vemra::inspect
