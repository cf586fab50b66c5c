#include "apps/inspect/Options.hpp"

#include <algorithm>
#include <sstream>
#include <vector>

#include <CLI/CLI.hpp>

namespace vemra::inspect {

namespace {

/// The arguments in reverse, as the parser wants them, but for what it would misunderstand.
///
/// It would take `--png=` for an option whose value comes next; to the user it is an empty value.
/// Throws a `CLI::ValidationError` for a flag with a value and for a picture without a name.
std::vector<std::string> forTheParser(int argumentCount, const char* const* arguments) {
  std::vector<std::string> reversed(arguments + std::min(argumentCount, 1),
                                    arguments + argumentCount);
  const auto end = std::ranges::find(reversed, "--");
  // The parser would take some values of a flag, and `--trace=0` for one that is not there.
  for (const std::string flag : {"--trace", "--outline"}) {
    for (auto argument = reversed.begin(); argument != end; ++argument) {
      if (argument->starts_with(flag + '=')) throw CLI::ValidationError(flag, "takes no value");
    }
  }
  const auto picture = std::find(reversed.begin(), end, "--png");
  if (picture != end && picture + 1 != reversed.end() && picture[1].starts_with("--")) {
    throw CLI::ValidationError("--png", "the name of its FILE is missing before " + picture[1]);
  }
  const auto empty = std::find(reversed.begin(), end, "--png=");
  if (empty != end) {
    *empty = "--png";
    reversed.insert(empty + 1, "");
  }
  std::ranges::reverse(reversed);
  return reversed;
}

}  // namespace

std::variant<Options, Farewell> readOptions(int argumentCount, const char* const* arguments,
                                            Pictures pictures) {
  Options options;
  std::string png;
  CLI::App app("Renders and drives the goal result screen of a case document without a window.",
               "vemra-inspect");
  app.add_option("CASE", options.file, "The case document, or - for standard input")->required();
  app.add_flag("--trace", options.trace, "Write the element tree after each step too");
  app.add_flag("--outline", options.outline, "Write indented text for people instead of JSON");
  CLI::Option* const picture =
      app.add_option("--png", png, "Draw the screen after the last step to a picture")
          ->type_name("FILE");
  try {
    app.parse(forTheParser(argumentCount, arguments));
    if (*picture && (png.empty() || png == "-")) {
      throw CLI::ValidationError("--png", "a picture wants a file; standard output has the report");
    }
    if (*picture && pictures == Pictures::notDrawn) {
      throw CLI::ValidationError("--png", "this build has no window and draws no pictures");
    }
  } catch (const CLI::ParseError& error) {
    std::ostringstream output;
    std::ostringstream diagnostic;
    const bool done = app.exit(error, output, diagnostic) == 0;
    return Farewell{done ? 0 : 2, output.str(), diagnostic.str()};
  }
  if (*picture) options.png = png;
  return options;
}

}  // namespace vemra::inspect
