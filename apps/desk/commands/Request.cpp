#include "apps/desk/commands/Request.hpp"

#include "apps/commandline/Version.hpp"
#include "apps/commandline/Words.hpp"

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

}  // namespace

std::variant<Request, commandline::Farewell> readRequest(int argumentCount,
                                                         const char* const* arguments) {
  Request request;
  Given given;
  CLI::App app("Shows the goals of a store and records what came of them.", "vemra-desk");
  commandline::offerVersion(app);
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
    const std::vector<std::string> words = commandline::wordsOf(argumentCount, arguments);
    commandline::parse(app, commandline::withEmptyValues(words, {"--goal", "--store"}));
    request.store = Given::value(given.stores, given.store);
    request.goal = Given::value(given.goals, given.goal);
    checkGoal(request);
  } catch (const CLI::ParseError& error) {
    return commandline::farewellOf(app, error);
  }
  return request;
}

}  // namespace vemra::desk
