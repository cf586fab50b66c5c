#include "VemraRecording/Recorder.hpp"
#include "tests/VemraRecording/RecordedHost.hpp"

#include <filesystem>
#include <memory>
#include <sys/stat.h>

namespace vemra::recording {
namespace {

using build::outcome;
using build::person;

class RecorderTest : public RecordedHost {};

/// A strings table of two entries.
class Table final : public ui::StringsTable {
 public:
  std::optional<std::string> lookup(std::string_view key) const override {
    if (key == "Save") return "Speichern";
    if (key == "Cancel") return "";
    return std::nullopt;
  }
};

TEST_F(RecorderTest, ASessionReplaysToTheSameScreenAndTheSameCalls) {
  record();
  testing::Screen& screen = addScreen();
  GetGoalSnapshotResponse result =
      resultOf({person("ada", "Ada", {"ev1"}), person("zoe", "Zo\u00eb")});
  show(screen, result);
  screen.press(testing::button("Ada"));
  screen.press(of("ada", ".show-source"));
  screen.press("vemra.goal.path.see-in-starfold");
  screen.press(of("zoe", ".outcome.start"));
  screen.select(of("zoe", ".outcome.picker"), "somethingElse");
  for (const char* typed : {"m", "me", "met\n", " met \"at\" \U0001F600 "}) {
    screen.type(of("zoe", ".outcome.note"), typed);
  }
  screen.submit(of("zoe", ".outcome.note"));
  screen.press(of("zoe", ".outcome.save"));
  result.outcomes = {outcome("o1", GoalOutcomeSubjectKind::person, "zoe",
                             GoalOutcomeValue::somethingElse, "met \"at\" \U0001F600")};
  show(screen, result);
  screen.press(of("zoe", ".outcome.correct"));
  screen.press(of("zoe", ".outcome.cancel"));
  screen.press("vemra.goal.path.outcome.start");

  EXPECT_EQ(calls.size(), 4U);
  expectSameReplay(screen);
}

TEST_F(RecorderTest, TheFileIsAWholeCaseAfterEveryStep) {
  record();
  testing::Screen& screen = addScreen();
  EXPECT_FALSE(std::filesystem::exists(file)) << "there is no result yet";
  show(screen, resultOf({person("ada", "Ada")}));
  expectSameReplay(screen);
  screen.press(of("ada", ".outcome.start"));
  expectSameReplay(screen);
  screen.type(of("ada", ".outcome.note"), "a");
  expectSameReplay(screen);
  screen.press(of("ada", ".outcome.save"));
  expectSameReplay(screen);
}

TEST_F(RecorderTest, AStepIsInTheFileBeforeItIsDoneAndACallBeforeTheHostHasIt) {
  record();
  testing::Screen& screen = addScreen();
  std::size_t steps = 0;
  std::vector<std::string> called;
  screen.show(recorder->view(
      screen.graph(), GoalResultSnapshotV1(resultOf({person("ada", "Ada")})),
      [&](const std::string&) {
        const Replayed replayed(file);
        steps = replayed.read.steps.size();
        called = replayed.calls();
      },
      nullptr, nullptr, nullptr));
  screen.press(testing::button("Ada"));
  EXPECT_EQ(steps, 2U) << "the press and the call";
  EXPECT_EQ(called.size(), 1U);
}

TEST_F(RecorderTest, RecordsLocaleTimeZoneAndTranslations) {
  record();
  ui::Environment environment;
  environment.locale = "de_DE";
  environment.timeZone = "Europe/Berlin";
  environment.strings = std::make_shared<Table>();
  testing::Screen& screen = addScreen(environment);
  show(screen, resultOf({person("ada", "Save")}));
  screen.press(of("ada", ".outcome.start"));
  EXPECT_NE(screen.outline().find("6. Jan. 2025"), std::string::npos) << screen.outline();
  expectSameReplay(screen);
}

TEST_F(RecorderTest, LeavesOutALocaleAndATimeZoneThatACaseCannotName) {
  record();
  ui::Environment environment;
  environment.locale = "root";
  environment.timeZone = "CET-1CEST";
  testing::Screen& screen = addScreen(environment);
  GetGoalSnapshotResponse result = resultOf({person("ada", "Ada")});
  result.coverage.latestEvidenceAt = std::nullopt;
  show(screen, result);
  const std::string text = TemporaryFolder::readFile(file);
  EXPECT_EQ(text.find("\"locale\""), std::string::npos) << text;
  EXPECT_EQ(text.find("\"timeZone\""), std::string::npos) << text;
  expectSameReplay(screen);
}

TEST_F(RecorderTest, ScreensKeepTheirEditorsWhileOthersAreShown) {
  record();
  testing::Screen& first = addScreen();
  testing::Screen& second = addScreen();
  show(first, resultOf({person("ada", "Ada")}));
  first.press(of("ada", ".outcome.start"));
  first.type(of("ada", ".outcome.note"), "in the first");
  GetGoalSnapshotResponse other = resultOf({person("ada", "Ada of another goal")});
  other.goal.id = "g2";
  show(second, other);
  second.press(of("ada", ".outcome.start"));
  second.press(of("ada", ".outcome.save"));
  expectSameReplay(second);
  recorder->showAgain(first.graph());
  expectSameReplay(first);
  show(second, other);
  expectSameReplay(second);
  first.press(of("ada", ".outcome.save"));
  expectSameReplay(first);
}

TEST_F(RecorderTest, AScreenOfAGraphThatIsGoneIsNeverShownAgain) {
  record();
  auto shown = std::make_unique<testing::Screen>(ui::Group({}), ui::Environment{});
  show(*shown, resultOf({person("ada", "Ada")}));
  shown->press(of("ada", ".outcome.start"));
  shown.reset();
  for (int round = 0; round < 3; ++round) {  // a graph may get the address of an earlier one
    testing::Screen later(ui::Group({}), {});
    show(later, resultOf({person("ada", "Ada")}));
    expectSameReplay(later);
  }
}

TEST_F(RecorderTest, NamesOneOfSeveralButtonsOfOneTitleByItsIndex) {
  record();
  testing::Screen& screen = addScreen();
  show(screen, resultOf({person("a", "Save"), person("b"), person("c", "Save", {"ev"}), person("d"),
                         person("e", "Unnamed person"), person("f", "Show source")}));
  screen.press(of("b", ".outcome.start"));  // the editor has a button "Save", too
  for (std::size_t index = 0; index < 3; ++index) {
    screen.press(testing::button("Unnamed person", index));
  }
  screen.press(testing::button("Save", 2));
  screen.press(testing::button("Save", 0));
  screen.press(testing::button("Show source", 1));
  EXPECT_EQ(calls.size(), 6U);
  expectSameReplay(screen);
}

TEST_F(RecorderTest, NamesOneOfSeveralElementsOfOneIdentifierByItsIndex) {
  record();
  testing::Screen& screen = addScreen();
  show(screen,
       resultOf({person("a", "First"), person("b"), person("a", "Second"), person("a", "Third")}));
  screen.press(testing::byIdentifier(of("a", ".outcome.start"), 2));
  screen.press(testing::byIdentifier(of("a", ".outcome.start"), 0));
  screen.type(testing::byIdentifier(of("a", ".outcome.note"), 1), "to the third");
  screen.select(testing::byIdentifier(of("a", ".outcome.picker"), 1), "invited");
  screen.submit(testing::byIdentifier(of("a", ".outcome.note"), 1));
  screen.press(testing::byIdentifier(of("a", ".outcome.save"), 1));
  expectSameReplay(screen);
}

TEST_F(RecorderTest, AnUnchangedResultIsWrittenOnce) {
  record();
  testing::Screen& screen = addScreen();
  const auto result = resultOf({person("ada", "Ada")});
  show(screen, result);
  const auto size = std::filesystem::file_size(file);
  show(screen, result);
  EXPECT_EQ(std::filesystem::file_size(file), size);
}

TEST_F(RecorderTest, TheScreenWorksOnWhenTheRecorderIsGone) {
  record();
  testing::Screen& screen = addScreen();
  show(screen, resultOf({person("ada", "Ada")}));
  recorder.reset();
  const std::string text = TemporaryFolder::readFile(file);
  screen.press(testing::button("Ada"));
  EXPECT_EQ(calls.size(), 1U);
  EXPECT_EQ(TemporaryFolder::readFile(file), text);
}

TEST_F(RecorderTest, OnlyTheOwnerCanReadARecording) {
  record();
  show(addScreen(), resultOf({}));
  struct stat status {};
  ASSERT_EQ(::stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(RecorderTest, NamesTheProgramThatRecorded) {
  record();
  show(addScreen(), resultOf({}));
  const Replayed replayed(file);
  ASSERT_TRUE(replayed.read.recorded);
  EXPECT_EQ(replayed.read.recorded->program, "a host");
  EXPECT_EQ(replayed.read.recorded->version, "1.2");
  EXPECT_FALSE(replayed.read.recorded->isMasked);
}

}  // namespace
}  // namespace vemra::recording
