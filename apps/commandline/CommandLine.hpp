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

/// The options and words of a program, or of one of its commands.
///
/// The variables that they are read into must live until the command line has been read.
class Syntax {
 public:
  /// A required word.
  void word(const char* name, std::string& value, const char* description);

  /// One word or more.
  void words(const char* name, std::vector<std::string>& values, const char* description);

  /// An option that takes no value.
  void flag(const char* name, bool& isGiven, const char* description);

  /// An option with a value, which may be empty. It may be given once: when a program and its
  /// command have the same option with the same `value`, before or behind the name of the command.
  void option(const char* name, const char* placeholder, std::optional<std::string>& value,
              const char* description);

 private:
  friend class CommandLine;
  Syntax(CommandLine& ofLine, CLI::App& ofApp) : line(&ofLine), app(&ofApp) {}

  CommandLine* line;
  CLI::App* app;
};

/// Thrown for a command line after which the program ends at once: it has a mistake, or requests
/// help or the version.
struct Ending : std::exception {
  explicit Ending(EarlyExit exit) : earlyExit(std::move(exit)) {}
  const char* what() const noexcept override { return earlyExit.diagnostic.c_str(); }

  EarlyExit earlyExit;
};

/// Reads the command line of a program, with `--help` and `--version` besides the program's own
/// options.
///
/// The only file that includes the parsing library, whose header takes longer to compile than all
/// other code here.
class CommandLine {
 public:
  CommandLine(const std::string& program, const std::string& description);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  /// The program's own options and words.
  Syntax syntax();

  /// A command of the program. A command line has at most one; `chosen` is called when it is given.
  Syntax command(const char* name, const char* description, std::function<void()> chosen);

  /// Reads the words behind the program's name. Throws an `Ending`.
  void read(const std::vector<std::string>& words);

  /// The ending for a mistake that the parser cannot find, with exit code 2.
  Ending mistake(const std::string& text) const;

 private:
  friend class Syntax;
  struct Parser;
  std::unique_ptr<Parser> parser;
};

}  // namespace vemra::commandline
