#include "apps/desk/commands/Request.hpp"

#include <algorithm>
#include <sstream>

#include <CLI/CLI.hpp>

namespace vemra::desk {
namespace {

using Command = Request::Command;

/// The options as they stand on the command line, before or behind the name of a command.
struct Given {
  std::string store;
  std::string goal;
  std::vector<CLI::Option*> stores;
  std::vector<CLI::Option*> goals;

  void offerStore(CLI::App& app) {
    stores.push_back(
        app.add_option("--store", store, "The store, an SQLite 3 file; the user's own without it")
            ->type_name("FILE"));
  }
  void offerGoal(CLI::App& app, const char* description) {
    goals.push_back(app.add_option("--goal", goal, description)->type_name("ID"));
  }

  static std::optional<std::string> value(const std::vector<CLI::Option*>& places,
                                          const std::string& text) {
    std::size_t count = 0;
    for (const CLI::Option* option : places) count += option->count();
    if (count > 1) throw CLI::ValidationError(places.front()->get_name(), "is given twice");
    return count == 1 ? std::optional(text) : std::nullopt;
  }
};

void checkGoal(const Request& request) {
  const bool wanted =
      request.command == Command::showOutcomes || request.command == Command::exportGoal;
  if (wanted && !request.goal) throw CLI::RequiredError("--goal");
  if (!wanted && request.command != Command::showWindow && request.goal) {
    throw CLI::ValidationError("--goal", "this command is not about one goal");
  }
}

/// The arguments in reverse, as the parser wants them. It would take `--goal=` for an option whose
/// value comes next; to the user it is an empty value.
std::vector<std::string> forTheParser(int argumentCount, const char* const* arguments) {
  std::vector<std::string> reversed;
  bool optionsEnded = false;
  for (int i = 1; i < argumentCount; ++i) {
    const std::string argument = arguments[i];
    optionsEnded |= argument == "--";
    if (!optionsEnded && (argument == "--goal=" || argument == "--store=")) {
      reversed.push_back(argument.substr(0, argument.size() - 1));
      reversed.emplace_back();
    } else {
      reversed.push_back(argument);
    }
  }
  std::reverse(reversed.begin(), reversed.end());
  return reversed;
}

}  // namespace

std::variant<Request, Farewell> readRequest(int argumentCount, const char* const* arguments) {
  Request request;
  Given given;
  CLI::App app("Shows the goals of a store and records what came of them.", "vemra-desk");
  app.require_subcommand(0, 1);
  given.offerStore(app);
  given.offerGoal(app, "Open this goal at once");

  const auto command = [&](Command value, const char* name, const char* description) {
    CLI::App* const subcommand = app.add_subcommand(name, description);
    subcommand->final_callback([&request, value] { request.command = value; });
    given.offerStore(*subcommand);
    return subcommand;
  };
  command(Command::importDocuments, "import", "Store result documents, all of them or none")
      ->add_option("DOC.json", request.documents, "Result documents; - is standard input")
      ->required();
  command(Command::listGoals, "goals", "List the goals: id, a tab, title");
  given.offerGoal(
      *command(Command::showOutcomes, "outcomes", "Write what was recorded for a goal, as JSON"),
      "The goal");
  given.offerGoal(*command(Command::exportGoal, "export", "Write a goal's current result document"),
                  "The goal");

  try {
    app.parse(forTheParser(argumentCount, arguments));
    request.store = Given::value(given.stores, given.store);
    request.goal = Given::value(given.goals, given.goal);
    checkGoal(request);
  } catch (const CLI::ParseError& error) {
    std::ostringstream output;
    std::ostringstream diagnostic;
    const bool done = app.exit(error, output, diagnostic) == 0;
    return Farewell{done ? 0 : 2, output.str(), diagnostic.str()};
  }
  return request;
}

}  // namespace vemra::desk
