#pragma once

#include "apps/commandline/EarlyExit.hpp"

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace vemra::commandline {

class CommandLine;

/// The options and words that a program takes, or one of its commands.
///
/// What they are read into must live until the command line has been read.
class Syntax {
 public:
  /// A word that must be there.
  void word(const char* name, std::string& value, const char* description);

  /// One word or more.
  void words(const char* name, std::vector<std::string>& values, const char* description);

  /// An option that takes no value.
  void flag(const char* name, bool& isGiven, const char* description);

  /// An option with a value, which may be empty. It may stand once: where a program and its command take
  /// the same option into the same `value`, before or behind the name of the command.
  void option(const char* name, const char* placeholder, std::optional<std::string>& value,
              const char* description);

 private:
  friend class CommandLine;
  Syntax(CommandLine& ofLine, CLI::App& ofApp) : line(&ofLine), app(&ofApp) {}

  CommandLine* line;
  CLI::App* app;
};

/// Thrown where a command line asks for nothing to be done: it is wrong, or asks for help or the version.
struct Ending : std::exception {
  explicit Ending(EarlyExit exit) : earlyExit(std::move(exit)) {}
  const char* what() const noexcept override { return earlyExit.diagnostic.c_str(); }

  EarlyExit earlyExit;
};

/// Reads the command line of a program, which takes `--help` and `--version` besides what it says itself.
///
/// The only place that knows the library that parses: its header takes longer to compile than all else here.
class CommandLine {
 public:
  CommandLine(const std::string& program, const std::string& description);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  /// What the program takes.
  Syntax syntax();

  /// A command of the program, of which a command line has at most one; `chosen` is called for it.
  Syntax command(const char* name, const char* description, std::function<void()> chosen);

  /// Reads the words behind the program's name. Throws an `Ending`.
  void read(const std::vector<std::string>& words);

  /// The ending with exit code 2 for a mistake that the parser does not know.
  Ending mistake(const std::string& text) const;

 private:
  friend class Syntax;
  struct Parser;
  std::unique_ptr<Parser> parser;
};

}  // namespace vemra::commandline
