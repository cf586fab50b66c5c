#include "tests/apps/desk/program/DeskTest.hpp"

#include <sstream>
#include <string_view>

namespace vemra::desk {
namespace {

using CommandsTest = DeskTest;

TEST_F(CommandsTest, ExportReturnsTheImportedDocument) {
  const auto result = goal("g1", "t", {outcome("o1", "p1", GoalOutcomeValue::helped)});
  const std::string file = document("a.json", result);
  EXPECT_EQ(outputOf({"import", "--store", store, file}), "");
  EXPECT_EQ(outputOf({"export", "--store", store, "--goal", "g1"}), documents::writeResult(result));
  EXPECT_EQ(outputOf({"outcomes", "--store", store, "--goal", "g1"}),
            documents::writeOutcomes(result.outcomes));
}

TEST_F(CommandsTest, TheSampleDocumentsAreResultDocuments) {
  std::vector<std::string> arguments{"import", "--store", store};
  for (const auto& entry :
       std::filesystem::directory_iterator(VEMRA_REPOSITORY "/apps/desk/samples")) {
    arguments.push_back(entry.path().string());
  }
  EXPECT_EQ(arguments.size(), 6u);
  EXPECT_EQ(outputOf(arguments), "");
  EXPECT_THAT(
      outputOf({"goals", "--store", store}),
      ::testing::HasSubstr("sample-design-lead\tFind a design lead for the spring launch\n"));
}

TEST_F(CommandsTest, GoalsAreListedInTheOrderOfTheirImport) {
  const std::string b = document("b.json", goal("b", "Second letter"));
  const std::string a = document("a.json", goal("a", "First letter é 石川"));
  EXPECT_EQ(outputOf({"import", "--store", store, b, a}), "");
  EXPECT_EQ(outputOf({"goals", "--store", store}), "b\tSecond letter\na\tFirst letter é 石川\n");
}

TEST_F(CommandsTest, AGoalStaysOnOneLine) {
  using namespace std::string_literals;
  const std::string file = document("a.json", goal("a\tb\\",
                                                   "1\n2\r3\t4\u2028"
                                                   "5\u0085"
                                                   "6\u001b[31m\0end"s));
  EXPECT_EQ(outputOf({"import", "--store", store, file}), "");
  EXPECT_EQ(outputOf({"goals", "--store", store}),
            "a\\tb\\\\\t1\\n2\\r3\\t4\u20285\u00856\x1b[31m\0end\n"s)
      << "characters that break no line stay unchanged";
}

/// An id or a title in a line of `goals`, converted back as a script does.
std::string turnedBack(std::string_view escaped) {
  std::string text;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    if (escaped[i] != '\\') {
      text += escaped[i];
      continue;
    }
    const char letter = escaped.at(++i);
    text += letter == 't' ? '\t' : letter == 'n' ? '\n' : letter == 'r' ? '\r' : letter;
  }
  return text;
}

TEST_F(CommandsTest, ALineOfAGoalCanBeConvertedBackIntoItsIdAndTitle) {
  const std::vector<std::string> texts = {"a\tb", "a\\tb", "a\\\tb", "a\\\\tb", "\\",
                                          "\\\\", "\n",    "\\n",    "\r\\r",   "C:\\new\\recipes"};
  std::vector<std::string> arguments{"import", "--store", store};
  for (const std::string& text : texts) {
    arguments.push_back(
        document(std::to_string(arguments.size()) + ".json", goal(text, "title " + text)));
  }
  EXPECT_EQ(outputOf(arguments), "");

  std::istringstream lines(outputOf({"goals", "--store", store}));
  for (const std::string& text : texts) {
    std::string id, title;
    ASSERT_TRUE(std::getline(lines, id, '\t') && std::getline(lines, title));
    EXPECT_EQ(turnedBack(id), text) << id;
    EXPECT_EQ(turnedBack(title), "title " + text) << title;
    EXPECT_NE(outputOf({"export", "--store", store, "--goal", turnedBack(id)}), "");
  }
  EXPECT_EQ(lines.peek(), std::istringstream::traits_type::eof()) << "a line too many";
}

TEST_F(CommandsTest, AMissingStoreIsEmptyAndIsNotCreated) {
  EXPECT_EQ(outputOf({"goals", "--store", store}), "");
  EXPECT_EQ(desk({"export", "--store", store, "--goal", "g1"}).exitCode, 2);
  EXPECT_TRUE(everything().empty());
}

TEST_F(CommandsTest, OptionsMayStandBeforeAndBehind) {
  const std::string file = document("a.json", goal("g1", "t"));
  EXPECT_EQ(outputOf({"--store", store, "import", file}), "");
  EXPECT_EQ(outputOf({"import", file, "--store", store}), "");
  EXPECT_EQ(outputOf({"import", "--store=" + store, file}), "");
  const std::string exported = outputOf({"export", "--store", store, "--goal", "g1"});
  EXPECT_EQ(outputOf({"export", "--goal", "g1", "--store", store}), exported);
  EXPECT_EQ(outputOf({"--store", store, "export", "--goal=g1"}), exported);
  EXPECT_EQ(outputOf({"--goal", "g1", "--store", store, "export"}), exported);
}

TEST_F(CommandsTest, UnusualIdsAndNamesStayUnchanged) {
  for (const std::string id : {"", "-x", "--goal", "import", "[a,b]", "a=b", "\"q\"", "e\u0301"}) {
    const std::string file = document("goals", goal(id, "titled " + id));
    Invocation invocation = commandLine({"import", "--store", "import", "goals"});
    invocation.folder = folder.path().string();
    ASSERT_EQ(run(invocation).exitCode, 0) << run(invocation).diagnostics;
    invocation.arguments = {"export", "--store", "import", "--goal=" + id};
    const Ending ending = run(invocation);
    EXPECT_EQ(ending.exitCode, 0) << id << ": " << ending.diagnostics;
    EXPECT_EQ(ending.output, TemporaryFolder::readFile(file)) << id;
  }
}

TEST_F(CommandsTest, ADocumentMayComeFromStandardInput) {
  Invocation invocation = commandLine({"import", "--store", store, "-"});
  invocation.input = documents::writeResult(goal("g1", "t"));
  EXPECT_EQ(run(invocation).exitCode, 0);
  EXPECT_EQ(outputOf({"goals", "--store", store}), "g1\tt\n");
}

TEST_F(CommandsTest, AnOutcomeRecordedWithOtherContentStaysAndIsReported) {
  const auto say = [](GoalOutcomeValue value) {
    return goal("g1", "t", {outcome("o1", "p1", value)});
  };
  outputOf({"import", "--store", store, document("a.json", say(GoalOutcomeValue::helped))});
  const std::string b = document("b.json", say(GoalOutcomeValue::notAFit));
  const Ending ending = desk({"import", "--store", store, b});
  EXPECT_EQ(ending.exitCode, 0);
  EXPECT_EQ(ending.output, "");
  EXPECT_EQ(ending.diagnostics, b + ": /outcomes/0: the outcome \"o1\" is recorded with another "
                                    "content, which stays\n");
  EXPECT_EQ(outputOf({"export", "--store", store, "--goal", "g1"}),
            TemporaryFolder::readFile(folder.file("a.json")));
}

TEST_F(CommandsTest, TheUsersOwnStoreIsInTheDataFolderAndPrivate) {
  const std::string file = document("a.json", goal("g1", "t"));
  const auto own = [&](std::vector<std::string> arguments, const std::string& data) {
    Invocation invocation = commandLine(std::move(arguments));
    invocation.environment = {{"HOME", folder.file("home")}, {"XDG_DATA_HOME", data}};
    return run(invocation);
  };
  EXPECT_EQ(own({"goals"}, "").exitCode, 0);
  EXPECT_FALSE(std::filesystem::exists(folder.file("home"))) << "listing must not make a store";
  for (const auto& [data, expected] :
       {std::pair<std::string, std::string>{"", "home/.local/share/vemra-desk/goals.sqlite"},
        {"not/absolute", "home/.local/share/vemra-desk/goals.sqlite"},
        {folder.file("data"), "data/vemra-desk/goals.sqlite"}}) {
    EXPECT_EQ(own({"import", file}, data).exitCode, 0);
    EXPECT_EQ(own({"goals"}, data).output, "g1\tt\n");
    namespace fs = std::filesystem;
    const fs::path made = folder.path() / expected;
    ASSERT_TRUE(fs::exists(made)) << made;
    EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(made.parent_path()).permissions(), fs::perms::owner_all);
  }
}

}  // namespace
}  // namespace vemra::desk
