#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/program/DeskTest.hpp"

namespace vemra::desk {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class ErrorsTest : public DeskTest {
 protected:
  /// Expects exit code 2, no output, a message with the given beginning, and an unchanged folder.
  void expectRefused(const Invocation& invocation, const std::string& diagnostics) {
    const auto before = everything();
    const Ending ending = run(invocation);
    std::string said = "vemra-desk";
    for (const auto& argument : invocation.arguments) said += " " + argument;
    EXPECT_EQ(ending.exitCode, 2) << said;
    EXPECT_EQ(ending.output, "") << said;
    EXPECT_THAT(ending.diagnostics, StartsWith(diagnostics)) << said;
    EXPECT_NE(ending.diagnostics, "") << said;
    EXPECT_EQ(everything(), before) << said << " changed something";
  }
  void expectRefused(std::vector<std::string> arguments, const std::string& diagnostics) {
    expectRefused(commandLine(std::move(arguments)), diagnostics);
  }

  void expectEachCommandRefused(const std::string& file, const std::string& diagnostics) {
    const std::string fine = document("fine.json", goal("g1", "t"));
    expectRefused({"import", "--store", file, fine}, diagnostics);
    expectRefused({"goals", "--store", file}, diagnostics);
    expectRefused({"outcomes", "--store", file, "--goal", "g1"}, diagnostics);
    expectRefused({"export", "--store", file, "--goal", "g1"}, diagnostics);
  }
};

TEST_F(ErrorsTest, ArgumentsThatMeanNothing) {
  const std::string fine = document("fine.json", goal("g1", "t"));
  for (const auto& arguments : std::vector<std::vector<std::string>>{
           {"frobnicate"},
           {"--frobnicate"},
           {"goals", "surplus"},
           {"goals", "--goal", "g1"},
           {"import", "--store", store},
           {"import", fine, "--goal", "g1"},
           {"export", "--store", store},
           {"outcomes", "--store", store},
           {"export", "--goal", "g1", "surplus", "--store", store},
           {"goals", "--store"},
           {"goals", "--store", store, "--store", store},
           {"--store", store, "goals", "--store", store},
           {"--goal", "g1", "export", "--goal", "g1", "--store", store},
           {"--goal", "g1", "goals", "--store", store},
           {"goals", "export", "--goal", "g1"},
           {"goals", "--sto", store}}) {
    expectRefused(arguments, "");
  }
  EXPECT_NE(desk({"frobnicate"}).diagnostics, "");
}

TEST_F(ErrorsTest, HelpIsNotAnError) {
  const Ending ending = desk({"--help"});
  EXPECT_EQ(ending.exitCode, 0);
  EXPECT_THAT(ending.output, AllOf(HasSubstr("import"), HasSubstr("--store")));
}

TEST_F(ErrorsTest, AGoalThatIsNotThere) {
  outputOf({"import", "--store", store, document("a.json", goal("g1", "t"))});
  for (const char* command : {"export", "outcomes"}) {
    expectRefused({command, "--store", store, "--goal", "g2\n"},
                  store + ": has no goal with the id \"g2\\n\"\n");
    expectRefused({command, "--store", folder.file("new"), "--goal", ""},
                  folder.file("new") + ": has no goal with the id \"\"\n");
  }
}

TEST_F(ErrorsTest, OneBadDocumentStopsTheWholeImport) {
  const std::string fine = document("fine.json", goal("g1", "t"));
  const std::string bad = folder.write("bad.json", R"({"goal": {"id": 7}})");
  expectRefused({"import", "--store", store, fine, bad},
                bad + ": /goal/id: expected a string; found 7");
  expectRefused({"import", "--store", store, bad, fine}, bad + ": /goal/id: ");
  EXPECT_FALSE(std::filesystem::exists(store)) << "not even an empty store may be left behind";

  outputOf({"import", "--store", store, fine});
  const std::string changed = document("changed.json", goal("g1", "changed"));
  expectRefused({"import", "--store", store, changed, bad}, bad + ": ");
  expectRefused({"import", "--store", store, changed, folder.file("missing.json")},
                folder.file("missing.json") + ": ");
  EXPECT_EQ(outputOf({"goals", "--store", store}), "g1\tt\n");
}

// With it the screen would stop the process, at every start if the goal is the first one.
TEST_F(ErrorsTest, AHopCountThatNoScreenCanShow) {
  const std::string fine = document("fine.json", goal("g1", "t"));
  const std::string problem =
      "/why/hopCount: expected an integer from -9223372036854775807, which a screen can show; "
      "found -9223372036854775808\n";
  auto person = goal("g2", "t");
  person.people = {{"a", {}, GoalWhyDTO::connection(INT64_MIN + 1), {}},
                   {"b", {}, GoalWhyDTO::connection(INT64_MIN), {}}};
  auto path = goal("g3", "t");
  path.paths = {{{"p1"}, GoalWhyDTO::connection(INT64_MIN), 0}};
  const std::string people = document("people.json", person);
  const std::string paths = document("paths.json", path);
  expectRefused({"import", "--store", store, fine, people}, people + ": /people/1" + problem);
  expectRefused({"import", "--store", store, paths, fine}, paths + ": /paths/0" + problem);
  EXPECT_FALSE(std::filesystem::exists(store)) << "not even an empty store may be left behind";

  person.people = {{"a", {}, GoalWhyDTO::connection(INT64_MIN + 1), {}}};
  outputOf({"import", "--store", store, document("border.json", person)});
  RawDatabase(store).run("UPDATE people SET why_hop_count = -9223372036854775808");
  const Ending ending = desk({"export", "--store", store, "--goal", "g2"});
  EXPECT_EQ(ending.exitCode, 2);
  EXPECT_EQ(ending.output, "");
  EXPECT_EQ(
      ending.diagnostics,
      store + ": holds a result that cannot be shown, of the goal \"g2\": /people/0" + problem);
  EXPECT_EQ(outputOf({"goals", "--store", store}), "g2\tt\n");
}

TEST_F(ErrorsTest, AFileThatIsNoStore) {
  const std::string letter = folder.write("letter.txt", "Dear Ada,\n");
  expectEachCommandRefused(letter, letter + ": is not an SQLite database\n");

  const std::string other = folder.file("other.sqlite");
  RawDatabase(other).run("CREATE TABLE recipes (name)");
  expectEachCommandRefused(other, other + ": is an SQLite database, but not a store of goals\n");

  expectEachCommandRefused(folder.path().string(), folder.path().string() + ": ");
  const std::string missing = folder.file("no/goals.sqlite");
  expectEachCommandRefused(missing, missing + ": ");
  expectEachCommandRefused("", "\"\": is not the name of a file\n");
}

TEST_F(ErrorsTest, AStoreOfANewerVersion) {
  outputOf({"import", "--store", store, document("a.json", goal("g1", "t"))});
  RawDatabase(store).run("PRAGMA user_version = 7");
  expectEachCommandRefused(store, store +
                                      ": was written by a newer vemra-desk: its version is 7, "
                                      "this one knows 2\n");
}

TEST_F(ErrorsTest, AStoreThatMayNotBeWritten) {
  outputOf({"import", "--store", store, document("a.json", goal("g1", "t"))});
  const std::string b = document("b.json", goal("g2", "t"));
  namespace fs = std::filesystem;
  fs::permissions(folder.path(), fs::perms(0755));
  fs::permissions(store, fs::perms(0444));
  Invocation import = commandLine({"import", "--store", store, b});
  import.rights = Rights::ofNobody;
  expectRefused(import, store + ": is read-only\n");
  import.arguments[2] = folder.file("new.sqlite");
  expectRefused(import, folder.file("new.sqlite") + ": cannot be made: Permission denied\n");

  fs::permissions(store, fs::perms(0000));
  Invocation list = commandLine({"goals", "--store", store});
  list.rights = Rights::ofNobody;
  expectRefused(list, store + ": cannot be opened: Permission denied\n");
}

TEST_F(ErrorsTest, AStoreInAFolderThatMayNotBeWritten) {
  outputOf({"import", "--store", store, document("a.json", goal("g1", "t"))});
  const std::string b = document("b.json", goal("g2", "t"));
  namespace fs = std::filesystem;
  fs::permissions(store, fs::perms(0666));
  fs::permissions(folder.path(), fs::perms(0555));
  Invocation import = commandLine({"import", "--store", store, b});
  import.rights = Rights::ofNobody;
  expectRefused(import, store + ": cannot be changed: its folder is read-only\n");
  fs::permissions(store, fs::perms(0444));
  expectRefused(import, store + ": is read-only\n");

  const std::vector<std::pair<std::vector<std::string>, std::string>> readings = {
      {{"goals", "--store", store}, "g1\tt\n"},
      {{"outcomes", "--store", store, "--goal", "g1"},
       outputOf({"outcomes", "--store", store, "--goal", "g1"})},
      {{"export", "--store", store, "--goal", "g1"},
       TemporaryFolder::readFile(folder.file("a.json"))}};
  const auto before = everything();
  for (const auto& [arguments, output] : readings) {
    Invocation reading = commandLine(arguments);
    reading.rights = Rights::ofNobody;
    const Ending ending = run(reading);
    EXPECT_EQ(ending.exitCode, 0) << arguments[0];
    EXPECT_EQ(ending.output, output) << arguments[0];
    EXPECT_EQ(ending.diagnostics, "") << arguments[0];
  }
  EXPECT_EQ(everything(), before);
  fs::permissions(folder.path(), fs::perms(0755));
}

TEST_F(ErrorsTest, ADamagedStoreIsAnErrorWithoutOutput) {
  auto big = goal("g1", "t");
  big.people = std::vector<GoalPersonCandidateDTO>(5000, big.people[0]);
  outputOf({"import", "--store", store, document("a.json", big)});
  std::string bytes = folder.read("goals.sqlite");
  for (std::size_t i = bytes.size() / 3; i < bytes.size(); ++i) bytes[i] = 'x';
  folder.write("goals.sqlite", bytes);
  const Ending ending = desk({"export", "--store", store, "--goal", "g1"});
  EXPECT_EQ(ending.exitCode, 2);
  EXPECT_EQ(ending.output, "");
  EXPECT_THAT(ending.diagnostics, StartsWith(store + ": "));
}

TEST_F(ErrorsTest, AnOutputThatCannotBeWritten) {
  outputOf({"import", "--store", store, document("a.json", goal("g1", "t"))});
  Process process("/bin/sh", {{"-c", "exec \"$0\" \"$@\" > /dev/full", vemraDesk, "export",
                               "--store", store, "--goal", "g1"}});
  const Ending ending = process.wait();
  EXPECT_EQ(ending.exitCode, 1);
  EXPECT_THAT(ending.diagnostics, HasSubstr("standard output"));
}

TEST_F(ErrorsTest, AWindowWithoutADisplay) {
  expectRefused({"--store", store}, "vemra-desk: ");
}

}  // namespace
}  // namespace vemra::desk
