#include "apps/inspect/Options.hpp"

#include "VemraPlatform/text/OneLine.hpp"
#include "apps/commandline/Version.hpp"
#include "apps/commandline/Words.hpp"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <vector>

#include <CLI/CLI.hpp>

namespace vemra::inspect {

namespace {

/// The words, once they are none that the parser would misunderstand.
///
/// Throws a `CLI::ValidationError` for a flag with a value and for a picture without a name.
std::vector<std::string> checked(std::vector<std::string> words) {
  const auto end = std::ranges::find(words, "--");
  // The parser would take some values of a flag, and `--trace=0` for one that is not there.
  for (const std::string flag : {"--trace", "--outline"}) {
    for (auto word = words.begin(); word != end; ++word) {
      if (word->starts_with(flag + '=')) throw CLI::ValidationError(flag, "takes no value");
    }
  }
  const auto picture = std::find(words.begin(), end, "--png");
  if (picture != end && picture + 1 != words.end() && picture[1].starts_with("--")) {
    throw CLI::ValidationError("--png", "the name of its FILE is missing before " + picture[1]);
  }
  return words;
}

/// Reads "80x24".
page::Size viewportSize(const std::string& text) {
  page::Size size;
  const char* const end = text.data() + text.size();
  const auto columns = std::from_chars(text.data(), end, size.width);
  if (columns.ec == std::errc() && columns.ptr != end && *columns.ptr == 'x') {
    const auto rows = std::from_chars(columns.ptr + 1, end, size.height);
    const auto isBetween = [](int low, int value, int high) {
      return low <= value && value <= high;
    };
    if (rows.ec == std::errc() && rows.ptr == end &&
        isBetween(smallestViewport.width, size.width, largestViewport.width) &&
        isBetween(smallestViewport.height, size.height, largestViewport.height)) {
      return size;
    }
  }
  throw CLI::ValidationError(
      "--viewport", "expected COLUMNSxROWS, 20x5 to 500x200; found " + text::quotedOnOneLine(text));
}

}  // namespace

std::variant<Options, commandline::Farewell> readOptions(int argumentCount,
                                                         const char* const* arguments,
                                                         Pictures pictures) {
  Options options;
  std::string png, viewport;
  CLI::App app("Renders and drives the goal result screen of a case document without a window.",
               "vemra-inspect");
  commandline::offerVersion(app);
  app.add_option("CASE", options.file, "The case document, or - for standard input")->required();
  app.add_flag("--trace", options.trace, "Write the element tree after each step too");
  app.add_flag("--outline", options.outline, "Write indented text for people instead of JSON");
  CLI::Option* const picture =
      app.add_option("--png", png, "Draw the screen after the last step to a picture")
          ->type_name("FILE");
  CLI::Option* const cells =
      app.add_option("--viewport", viewport,
                     "Write what a person sees in a window of that many character cells")
          ->type_name("COLUMNSxROWS");
  try {
    const auto words = checked(commandline::wordsOf(argumentCount, arguments));
    commandline::parse(app, commandline::withEmptyValues(words, {"--png", "--viewport"}));
    if (*picture && (png.empty() || png == "-")) {
      throw CLI::ValidationError("--png", "a picture wants a file; standard output has the report");
    }
    if (*picture && pictures == Pictures::notDrawn) {
      throw CLI::ValidationError("--png", "this build has no window and draws no pictures");
    }
    if (*cells) {
      options.viewport = viewportSize(viewport);
      if (options.trace || options.outline) {
        throw CLI::ValidationError("--viewport", "takes the place of --outline and --trace");
      }
    }
  } catch (const CLI::ParseError& error) {
    return commandline::farewellOf(app, error);
  }
  if (*picture) options.png = png;
  return options;
}

}  // namespace vemra::inspect
