#include "apps/desk/commands/Request.hpp"

#include "apps/commandline/CommandLine.hpp"
#include "apps/commandline/Words.hpp"

namespace vemra::desk {
namespace {

using Command = Request::Command;

void checkGoal(const commandline::CommandLine& line, const Request& request) {
  const bool wanted =
      request.command == Command::showOutcomes || request.command == Command::exportGoal;
  if (wanted && !request.goal) throw line.mistake("--goal is required");
  if (!wanted && request.command != Command::showWindow && request.goal) {
    throw line.mistake("--goal: this command is not about one goal");
  }
}

void checkRecording(const commandline::CommandLine& line, const Request& request) {
  if (request.masksRecording && !request.recording) {
    throw line.mistake("--mask: without --record there is nothing to mask");
  }
  if (!request.recording) return;
  if (request.command != Command::showWindow) {
    throw line.mistake("--record: only a window is recorded");
  }
  if (request.recording->empty() || *request.recording == "-") {
    throw line.mistake("--record: a recording needs a file");
  }
}

}  // namespace

std::variant<Request, commandline::EarlyExit> readRequest(int argumentCount,
                                                          const char* const* arguments) {
  Request request;
  commandline::CommandLine line("vemra-desk",
                                "Shows the goals of a store and records what came of them.");
  // Options may stand before or behind the name of a command.
  const auto takeStore = [&request](commandline::Syntax syntax) {
    syntax.option("--store", "FILE", request.store,
                  "The store, an SQLite 3 file; the user's own without it");
  };
  takeStore(line.syntax());
  line.syntax().option("--goal", "ID", request.goal, "Open this goal at once");
  line.syntax().option("--record", "FILE", request.recording,
                       "Record what the window shows and what you do, for vemra-inspect");
  line.syntax().flag("--mask", request.masksRecording, "Mask private texts in the recording");

  const auto command = [&](Command value, const char* name, const char* description) {
    commandline::Syntax syntax =
        line.command(name, description, [&request, value] { request.command = value; });
    takeStore(syntax);
    return syntax;
  };
  command(Command::importDocuments, "import", "Store result documents, all of them or none")
      .words("DOC.json", request.documents, "Result documents; - is standard input");
  command(Command::listGoals, "goals", "List the goals: id, a tab, title");
  command(Command::showOutcomes, "outcomes", "Write what was recorded for a goal, as JSON")
      .option("--goal", "ID", request.goal, "The goal");
  command(Command::exportGoal, "export", "Write a goal's current result document")
      .option("--goal", "ID", request.goal, "The goal");

  try {
    line.read(commandline::wordsOf(argumentCount, arguments));
    checkGoal(line, request);
    checkRecording(line, request);
  } catch (const commandline::Ending& ending) {
    return ending.earlyExit;
  }
  return request;
}

}  // namespace vemra::desk
