#include "apps/inspect/Options.hpp"

#include <sstream>

#include <CLI/CLI.hpp>

namespace vemra::inspect {

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
    app.parse(argumentCount, arguments);
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
