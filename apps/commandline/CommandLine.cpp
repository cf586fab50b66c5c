#include "apps/commandline/CommandLine.hpp"

#include "apps/commandline/Version.hpp"
#include "apps/commandline/Words.hpp"

#include <algorithm>
#include <deque>
#include <sstream>
#include <utility>

#include <CLI/CLI.hpp>

namespace vemra::commandline {

/// One option with a value; a program and its command may both have it.
struct ValueOption {
  std::string name;
  std::optional<std::string>* value;
  std::vector<CLI::Option*> places;
  std::string text;

  void store() const {
    std::size_t count = 0;
    for (const CLI::Option* place : places) count += place->count();
    if (count > 1) throw CLI::ValidationError(name, "is given twice");
    *value = count == 1 ? std::optional(text) : std::nullopt;
  }
};

struct CommandLine::Parser {
  Parser(const std::string& program, const std::string& description) : app(description, program) {}

  CLI::App app;
  std::deque<ValueOption> options;  // the parser keeps the address of each text
  std::vector<std::string> flags;

  EarlyExit earlyExit(const CLI::ParseError& error) const {
    std::ostringstream output, diagnostic;
    const bool done = app.exit(error, output, diagnostic) == 0;
    return {done ? 0 : 2, output.str(), diagnostic.str()};
  }
};

void Syntax::word(const char* name, std::string& value, const char* description) {
  app->add_option(name, value, description)->required();
}

void Syntax::words(const char* name, std::vector<std::string>& values, const char* description) {
  app->add_option(name, values, description)->required();
}

void Syntax::flag(const char* name, bool& isGiven, const char* description) {
  app->add_flag(name, isGiven, description);
  line->parser->flags.emplace_back(name);
}

void Syntax::option(const char* name, const char* placeholder, std::optional<std::string>& value,
                    const char* description) {
  std::deque<ValueOption>& options = line->parser->options;
  auto option = std::ranges::find(options, &value, &ValueOption::value);
  if (option == options.end()) {
    option = options.insert(options.end(), {name, &value, {}, {}});
  }
  option->places.push_back(
      app->add_option(name, option->text, description)->type_name(placeholder));
}

CommandLine::CommandLine(const std::string& program, const std::string& description)
    : parser(std::make_unique<Parser>(program, description)) {
  parser->app.set_version_flag("--version", program + " " + version(),
                               "Print the version and exit");
}

CommandLine::~CommandLine() = default;

Syntax CommandLine::syntax() {
  return {*this, parser->app};
}

Syntax CommandLine::command(const char* name, const char* description,
                            std::function<void()> chosen) {
  parser->app.require_subcommand(0, 1);
  CLI::App& command = *parser->app.add_subcommand(name, description);
  command.final_callback(std::move(chosen));
  return {*this, command};
}

void CommandLine::read(const std::vector<std::string>& words) {
  try {
    // The parser would accept some values of a flag, and treat `--flag=0` as an absent flag.
    const auto end = std::ranges::find(words, "--");
    for (const std::string& flag : parser->flags) {
      const bool hasValue = std::any_of(words.begin(), end, [&](const std::string& word) {
        return word.starts_with(flag + '=');
      });
      if (hasValue) throw CLI::ValidationError(flag, "takes no value");
    }
    std::vector<std::string> names;
    for (const ValueOption& option : parser->options) names.push_back(option.name);
    std::vector<std::string> completed = withEmptyValues(words, names);
    std::ranges::reverse(completed);  // the parser takes them from the back
    parser->app.parse(std::move(completed));
    for (const ValueOption& option : parser->options) option.store();
  } catch (const CLI::ParseError& error) {
    throw Ending(parser->earlyExit(error));
  }
}

Ending CommandLine::mistake(const std::string& text) const {
  return Ending(parser->earlyExit(CLI::ParseError(text, CLI::ExitCodes::ValidationError)));
}

}  // namespace vemra::commandline
