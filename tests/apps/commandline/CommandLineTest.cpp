#include "apps/commandline/CommandLine.hpp"
#include "apps/commandline/Version.hpp"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vemra::commandline {
namespace {

using Words = std::vector<std::string>;

/// A program with a word, a flag and an option; its command takes the same option, and words.
class CommandLineTest : public testing::Test {
 protected:
  CommandLineTest() {
    Syntax program = line.syntax();
    program.flag("--loud", isLoud, "Be loud");
    program.option("--name", "NAME", name, "A name");
    Syntax command = line.command("add", "Add files", [this] { isChosen = true; });
    command.option("--name", "NAME", name, "A name");
    command.words("FILE", files, "Files");
  }

  /// The result of reading the words; exit code -1 when they are valid.
  EarlyExit ending(const Words& words) {
    try {
      line.read(words);
    } catch (const Ending& ending) {
      return ending.earlyExit;
    }
    return {-1, "", ""};
  }

  CommandLine line{"program", "Does something."};
  bool isLoud = false, isChosen = false;
  std::optional<std::string> name;
  Words files;
};

TEST_F(CommandLineTest, ReadsFlagsOptionsAndTheWordsOfACommandInTheirOrder) {
  line.read({"--loud", "add", "b", "--name", "n", "a"});
  EXPECT_TRUE(isLoud);
  EXPECT_TRUE(isChosen);
  EXPECT_EQ(name, "n");
  EXPECT_EQ(files, (Words{"b", "a"}));
}

TEST_F(CommandLineTest, LeavesAbsentOptionsUnchanged) {
  line.read({});
  EXPECT_FALSE(isLoud);
  EXPECT_FALSE(isChosen);
  EXPECT_EQ(name, std::nullopt);
}

TEST_F(CommandLineTest, AnOptionMayHaveAnEmptyValue) {
  line.read({"--name="});
  EXPECT_EQ(name, "");
}

TEST_F(CommandLineTest, AnOptionMayStandBeforeACommandOrBehindItButOnce) {
  line.read({"--name", "n", "add", "a"});
  EXPECT_EQ(name, "n");
  const EarlyExit earlyExit = ending({"--name", "n", "add", "--name", "m", "a"});
  EXPECT_EQ(earlyExit.exitCode, 2);
  EXPECT_NE(earlyExit.diagnostic.find("--name: is given twice"), std::string::npos)
      << earlyExit.diagnostic;
}

TEST_F(CommandLineTest, AFlagTakesNoValue) {
  for (const char* const word : {"--loud=0", "--loud=true", "--loud="}) {
    const EarlyExit earlyExit = ending({word});
    EXPECT_EQ(earlyExit.exitCode, 2);
    EXPECT_NE(earlyExit.diagnostic.find("--loud: takes no value"), std::string::npos)
        << earlyExit.diagnostic;
  }
  line.read({"add", "--", "--loud=0"});
  EXPECT_EQ(files, Words{"--loud=0"}) << "behind -- it is a word";
}

TEST(CommandLineWordTest, AWordIsRequired) {
  CommandLine line("program", "Does something.");
  std::string file;
  line.syntax().word("FILE", file, "A file");
  try {
    line.read({});
    FAIL() << "FILE is required";
  } catch (const Ending& ending) {
    EXPECT_EQ(ending.earlyExit.exitCode, 2);
    EXPECT_NE(ending.earlyExit.diagnostic.find("FILE is required"), std::string::npos);
  }
  line.read({"a"});
  EXPECT_EQ(file, "a");
}

TEST_F(CommandLineTest, TheVersionFollowsTheProgramsName) {
  const EarlyExit earlyExit = ending({"--version", "add"});
  EXPECT_EQ(earlyExit.exitCode, 0);
  EXPECT_EQ(earlyExit.output, "program " + version() + "\n");
  EXPECT_EQ(earlyExit.diagnostic, "");
}

TEST_F(CommandLineTest, HelpEndsWithZeroAndAMistakeWithTwo) {
  const EarlyExit help = ending({"--help"});
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_NE(help.output.find("Does something."), std::string::npos);
  EXPECT_EQ(help.diagnostic, "");
  const EarlyExit mistake = ending({"--nothing"});
  EXPECT_EQ(mistake.exitCode, 2);
  EXPECT_EQ(mistake.output, "");
  EXPECT_NE(mistake.diagnostic.find("--nothing"), std::string::npos) << mistake.diagnostic;
  const EarlyExit own = line.mistake("--name: is too long").earlyExit;
  EXPECT_EQ(own.exitCode, 2);
  EXPECT_EQ(own.diagnostic.rfind("--name: is too long\n", 0), 0u) << own.diagnostic;
}

TEST(EarlyExitTest, IsWrittenToBothStreams) {
  std::ostringstream output, diagnostics;
  EXPECT_EQ(print({2, "out", "wrong"}, output, diagnostics), 2);
  EXPECT_EQ(output.str(), "out");
  EXPECT_EQ(diagnostics.str(), "wrong");
}

}  // namespace
}  // namespace vemra::commandline
