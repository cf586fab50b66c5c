#pragma once

#include "apps/commandline/EarlyExit.hpp"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vemra::desk {

/// The command of a command line, with its arguments.
struct Request {
  enum class Command { showWindow, importDocuments, listGoals, showOutcomes, exportGoal };

  Command command = Command::showWindow;
  std::optional<std::string> store;  ///< a file; nil is the user's own store
  /// The id of the goal that the command is about: never nil for one that shows or exports a goal,
  /// always nil for one that imports or lists, either for the window.
  std::optional<std::string> goal;
  std::vector<std::string> documents;  ///< files to import; at least one then
  /// The file into which a window records what is shown and done; nil for none.
  std::optional<std::string> recording;
  bool masksRecording = false;  ///< only with a recording
};

/// Reads a command line. `--store` may stand before the name of a command or anywhere behind it.
std::variant<Request, commandline::EarlyExit> readRequest(int argumentCount,
                                                          const char* const* arguments);

}  // namespace vemra::desk
