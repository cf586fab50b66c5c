#include "apps/commandline/Version.hpp"
#include "apps/desk/commands/Request.hpp"
#include "tests/apps/OptionsInPages.hpp"

#include <vector>

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::HasSubstr;

/// The error or output of a command line that is not carried out.
commandline::EarlyExit earlyExitFor(std::vector<const char*> words) {
  words.insert(words.begin(), "vemra-desk");
  const auto read = readRequest(static_cast<int>(words.size()), words.data());
  const auto* earlyExit = std::get_if<commandline::EarlyExit>(&read);
  return earlyExit != nullptr ? *earlyExit : commandline::EarlyExit{};
}

/// The error of a command line, "" for a request.
std::string diagnosticOf(std::vector<const char*> words) {
  return earlyExitFor(std::move(words)).diagnostic;
}

TEST(RequestTest, AnOptionThatIsGivenTwiceIsNamed) {
  EXPECT_THAT(diagnosticOf({"--goal", "g1", "export", "--goal", "g1"}),
              HasSubstr("--goal: is given twice"));
  EXPECT_THAT(diagnosticOf({"--store", "a", "goals", "--store", "b"}),
              HasSubstr("--store: is given twice"));
}

TEST(RequestTest, AGoalIsNeededForACommandAboutOneAndRefusedForTheOthers) {
  EXPECT_THAT(diagnosticOf({"export"}), HasSubstr("--goal is required"));
  EXPECT_THAT(diagnosticOf({"outcomes"}), HasSubstr("--goal is required"));
  EXPECT_THAT(diagnosticOf({"--goal", "g1", "goals"}),
              HasSubstr("--goal: this command is not about one goal"));
  EXPECT_EQ(diagnosticOf({"--goal", "g1"}), "") << "the window is about the goal";
}

TEST(RequestTest, OnlyAWindowIsRecordedIntoAFileAndOnlyARecordingIsMasked) {
  EXPECT_EQ(diagnosticOf({"--record", "case.json"}), "");
  EXPECT_EQ(diagnosticOf({"--mask", "--record", "case.json"}), "");
  EXPECT_THAT(diagnosticOf({"--mask"}), HasSubstr("--mask: without --record"));
  EXPECT_THAT(diagnosticOf({"--record", "case.json", "goals"}),
              HasSubstr("--record: only a window is recorded"));
  for (const char* none : {"", "-"}) {
    EXPECT_THAT(diagnosticOf({"--record", none}), HasSubstr("--record: a recording needs a file"));
  }
}

TEST(RequestTest, ACommandLineHasOneCommandOrNone) {
  EXPECT_EQ(diagnosticOf({}), "");
  EXPECT_EQ(diagnosticOf({"goals"}), "");
  EXPECT_NE(diagnosticOf({"goals", "export", "--goal", "g1"}), "");
}

TEST(RequestTest, TheManualPageAndTheCompletionHaveTheOptionsAndCommands) {
  using commandline::sample::fileText, commandline::sample::optionsIn;
  std::string help = earlyExitFor({"--help"}).output;
  const std::string page = fileText("packaging/man/vemra-desk.1.in");
  const std::string completion = fileText("packaging/completions/vemra-desk");
  for (const char* command : {"import", "goals", "outcomes", "export"}) {
    EXPECT_THAT(help, HasSubstr(command));
    help += earlyExitFor({command, "--help"}).output;
    EXPECT_THAT(page, HasSubstr(command));
    EXPECT_THAT(completion, HasSubstr(command));
  }
  EXPECT_EQ(optionsIn(page), optionsIn(help));
  EXPECT_EQ(optionsIn(completion), optionsIn(help));
}

TEST(RequestTest, TheVersionIsWrittenOnOneLine) {
  const commandline::EarlyExit earlyExit = earlyExitFor({"--version"});
  EXPECT_EQ(earlyExit.exitCode, 0);
  EXPECT_EQ(earlyExit.output, "vemra-desk " + commandline::version() + "\n");
}

TEST(RequestTest, HelpSaysWhatEachCommandAndOptionIsFor) {
  const std::string help = earlyExitFor({"--help"}).output;
  for (const char* purpose :
       {"Store result documents, all of them or none", "List the goals: id, a tab, title",
        "Write what was recorded for a goal, as JSON", "Write a goal's current result document",
        "Open this goal at once", "--goal ID", "--store FILE",
        "The store, an SQLite 3 file; the user's own without it"}) {
    EXPECT_THAT(help, HasSubstr(purpose));
  }
  EXPECT_THAT(earlyExitFor({"import", "--help"}).output,
              HasSubstr("Result documents; - is standard input"));
  for (const char* command : {"export", "outcomes"}) {
    EXPECT_THAT(earlyExitFor({command, "--help"}).output, HasSubstr("The goal")) << command;
  }
}

TEST(RequestTest, AnEmptyValueIsAValueLikeAnyOther) {
  const auto requestOf = [](std::vector<const char*> words) {
    words.insert(words.begin(), "vemra-desk");
    return std::get<Request>(readRequest(static_cast<int>(words.size()), words.data()));
  };
  EXPECT_EQ(requestOf({"goals", "--store", ""}).store, "");
  EXPECT_EQ(requestOf({"--store=", "goals"}).store, "");
  EXPECT_EQ(requestOf({"--store=", "goals"}).command, Request::Command::listGoals);
  EXPECT_EQ(requestOf({"--goal=", "export"}).goal, "");
}

}  // namespace
}  // namespace vemra::desk
