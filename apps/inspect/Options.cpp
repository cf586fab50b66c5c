#include "apps/inspect/Options.hpp"

#include "VemraPlatform/text/OneLine.hpp"
#include "apps/commandline/CommandLine.hpp"
#include "apps/commandline/Words.hpp"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <vector>

namespace vemra::inspect {

namespace {

/// Reads "80x24"; null where the text is no size of a viewport.
std::optional<page::Size> viewportSize(const std::string& text) {
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
  return std::nullopt;
}

}  // namespace

std::variant<Options, commandline::EarlyExit> readOptions(int argumentCount,
                                                          const char* const* arguments,
                                                          Pictures pictures) {
  Options options;
  std::optional<std::string> viewport;
  commandline::CommandLine line(
      "vemra-inspect",
      "Renders and drives the goal result screen of a case document without a window.");
  commandline::Syntax syntax = line.syntax();
  syntax.word("CASE", options.file, "The case document, or - for standard input");
  syntax.flag("--trace", options.trace, "Write the element tree after each step too");
  syntax.flag("--outline", options.outline, "Write indented text for people instead of JSON");
  syntax.option("--png", "FILE", options.png, "Draw the screen after the last step to a picture");
  syntax.option("--viewport", "COLUMNSxROWS", viewport,
                "Write what a person sees in a window of that many character cells");
  try {
    const std::vector<std::string> words = commandline::wordsOf(argumentCount, arguments);
    const auto end = std::ranges::find(words, "--");
    const auto picture = std::find(words.begin(), end, "--png");
    if (picture != end && picture + 1 != words.end() && picture[1].starts_with("--")) {
      throw line.mistake("--png: the name of its FILE is missing before " + picture[1]);
    }
    line.read(words);
    if (options.png && (options.png->empty() || options.png == "-")) {
      throw line.mistake("--png: a picture needs a file; standard output has the report");
    }
    if (options.png && pictures == Pictures::notDrawn) {
      throw line.mistake("--png: this build has no window and draws no pictures");
    }
    if (viewport) {
      options.viewport = viewportSize(*viewport);
      if (!options.viewport) {
        throw line.mistake("--viewport: expected COLUMNSxROWS, 20x5 to 500x200; found " +
                           text::quotedOnOneLine(*viewport));
      }
      if (options.trace || options.outline) {
        throw line.mistake("--viewport: cannot be combined with --outline or --trace");
      }
    }
  } catch (const commandline::Ending& ending) {
    return ending.earlyExit;
  }
  return options;
}

}  // namespace vemra::inspect
