#include "apps/desk/store/SampleGoals.hpp"
#include "apps/desk/window/DeskController.hpp"
#include "tests/apps/TemporaryFolder.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/window/Becomes.hpp"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// Records what a controller shows.
struct Written final : DeskDisplay {
  void showGoals(const std::vector<GoalListing>& listed, const std::string& id) override {
    goals.clear();
    for (const GoalListing& each : listed) goals.push_back(each.id);
    chosen = id;
    ++timesListed;
  }
  void showGoal(const LoadedGoal& loaded) override {
    goal = loaded;
    shown.insert(loaded.id);
    failure.clear();
  }
  bool keepGoal(const std::string& goalID) override {
    const bool isKept = shown.contains(goalID);
    if (isKept) ++timesKept;
    return isKept;
  }
  void showFailure(const QString& reason) override { failure = reason.toStdString(); }
  void showNotice(const QString& text, std::function<void()> again) override {
    notices.push_back(text.toStdString());
    tryAgain = std::move(again);
  }
  void showWaiting(const std::vector<WaitingNote>& notes) override {
    waiting = notes;
    mostWaiting = std::max(mostWaiting, notes.size());
  }
  void showPerson(PersonKnowledge) override { ++timesDetailed; }
  void showEvidence(EvidenceKnowledge) override { ++timesDetailed; }
  void showPath(const GoalPathCandidateDTO&,
                const std::vector<std::optional<std::string>>& names) override {
    namesOnPath = names;
    ++timesDetailed;
  }
  void noteMissingDetails() override { ++timesMissing; }
  void closeDetails() override { ++timesClosed; }
  void noteStored(const std::string& id) override { stored.push_back(id); }
  bool isHeard() const override { return heard; }
  void announce(const QString& sentence) override {
    announced.push_back(
        QString(sentence).remove(QChar(0x2068)).remove(QChar(0x2069)).toStdString());
  }

  std::string goalID() const { return goal ? goal->id : ""; }

  std::vector<std::string> goals;
  std::string chosen;
  bool heard = true;
  std::optional<LoadedGoal> goal;
  std::set<std::string> shown;  // the goals that have been shown
  std::vector<std::optional<std::string>> namesOnPath;
  std::string failure;
  std::vector<std::string> notices, announced, stored;
  std::function<void()> tryAgain;
  std::vector<WaitingNote> waiting;
  std::size_t mostWaiting = 0;
  int timesListed = 0, timesKept = 0, timesDetailed = 0, timesMissing = 0, timesClosed = 0;
};

class DeskControllerTest : public ::testing::Test {
 protected:
  ~DeskControllerTest() override {
    controller.reset();
    engine->finish();
  }

  void start(std::optional<std::string> goalID = std::nullopt) {
    controller = std::make_unique<DeskController>(engine, display);
    controller->start(std::move(goalID));
  }

  bool opens(const std::string& goalID) {
    return becomes([&] { return display.goalID() == goalID; });
  }

  void import(const std::vector<GetGoalSnapshotResponse>& results) const {
    GoalStore::open(file).import(results);
  }

  std::vector<GoalOutcomeDTO> outcomes(const std::string& goalID) const {
    const auto result = GoalStore::open(file).result(goalID);
    return {result.outcomes.begin(), result.outcomes.end()};
  }

  void recordForShownGoal() {
    controller->record(*display.goal, GoalOutcomeRecordingFormLogic::recordingInput(
                                          GoalOutcomeSubjectKind::person, "p1",
                                          GoalOutcomeValue::helped, "", std::nullopt));
  }

  TemporaryFolder folder;
  std::string file = folder.file("goals.sqlite");
  Written display;
  std::shared_ptr<StoreEngine> engine = std::make_shared<StoreEngine>(file, usualPatience);
  std::unique_ptr<DeskController> controller;
};

TEST_F(DeskControllerTest, OpensTheFirstGoal) {
  import({goal("g1", "One"), goal("g2", "Two")});
  start();
  ASSERT_TRUE(opens("g1"));
  EXPECT_THAT(display.goals, ElementsAre("g1", "g2"));
  EXPECT_EQ(display.chosen, "g1");
}

TEST_F(DeskControllerTest, OpensTheRequestedGoal) {
  import({goal("g1", "One"), goal("g2", "Two")});
  start("g2");
  ASSERT_TRUE(opens("g2"));
  EXPECT_EQ(display.chosen, "g2");
}

// The controller is not started, so it does not look for changes, which would load everything
// again.
TEST_F(DeskControllerTest, AGoalThatWasReadAcrossTwoStoresIsReadAgain) {
  import({goal("g1", "One"), goal("g2", "Two")});
  controller = std::make_unique<DeskController>(engine, display);
  controller->openGoal("g1");
  ASSERT_TRUE(opens("g1"));
  const std::string backup = folder.file("backup.sqlite");
  GoalStore::open(backup).import({goal("g2", "Of the backup")});
  std::filesystem::rename(backup, file);
  controller->openGoal("g2");
  ASSERT_TRUE(becomes([&] { return !display.failure.empty(); }));
  EXPECT_THAT(display.failure, HasSubstr("was replaced by another file"));
  controller->loadGoal();
  ASSERT_TRUE(opens("g2"));
  EXPECT_EQ(display.goal->snapshot.goal().title, "Of the backup");
  EXPECT_EQ(display.goal->store, engine->storeNumber());
}

TEST_F(DeskControllerTest, OpensTheFirstSampleGoalOfAStoreThatHasNone) {
  GoalStore::open(file);
  start();
  ASSERT_TRUE(becomes([&] { return display.timesListed > 0; }));
  EXPECT_THAT(display.goals, IsEmpty());
  controller->addSampleGoals();
  EXPECT_TRUE(opens(sampleGoals().front().goal.id));
}

TEST_F(DeskControllerTest, AnotherGoalClosesTheDetails) {
  import({goal("g1", "One"), goal("g2", "Two")});
  start();
  ASSERT_TRUE(opens("g1"));
  controller->openGoal("g1");
  EXPECT_EQ(display.timesClosed, 0) << "it is open";
  controller->openGoal("g2");
  EXPECT_EQ(display.timesClosed, 1);
  EXPECT_TRUE(opens("g2"));
}

TEST_F(DeskControllerTest, ChangesOfAnotherProgramAreAnnouncedOnlyWhileTheDisplayIsHeard) {
  import({goal("g1", "One")});
  start();
  ASSERT_TRUE(opens("g1"));
  display.heard = false;
  import({goal("g1", "Two"), goal("g2", "Second")});
  ASSERT_TRUE(becomes([&] { return display.goal->snapshot.goal().title == "Two"; }));
  EXPECT_THAT(display.announced, IsEmpty());
  display.heard = true;
  import({goal("g1", "Three"), goal("g3", "Third")});
  ASSERT_TRUE(becomes([&] { return display.goal->snapshot.goal().title == "Three"; }));
  EXPECT_THAT(display.announced, ElementsAre("New goals: Third.", "This goal has changed."));
}

TEST_F(DeskControllerTest, ARecordedOutcomeAppearsInTheGoal) {
  import({goal("g1", "One")});
  start();
  ASSERT_TRUE(opens("g1"));
  const GoalResultSnapshotV1 before = display.goal->snapshot;
  recordForShownGoal();
  EXPECT_TRUE(becomes([&] { return !(display.goal->snapshot == before); }));
  EXPECT_EQ(outcomes("g1").size(), 1u);
  EXPECT_THAT(display.notices, IsEmpty());
  EXPECT_EQ(display.stored.size(), 1u);
  EXPECT_THAT(display.announced, IsEmpty());
  EXPECT_EQ(display.mostWaiting, 0u) << "an outcome that is stored at once is not shown as waiting";
}

TEST_F(DeskControllerTest, AnOutcomeThatCouldNotBeStoredIsStoredOnceByTryingAgain) {
  import({goal("g1", "One")});
  start();
  ASSERT_TRUE(opens("g1"));
  const auto isNoticed = [&](const char* text) {
    return becomes([&] {
      return !display.notices.empty() && display.notices.back().find(text) != std::string::npos;
    });
  };
  std::filesystem::remove(file);
  ASSERT_TRUE(isNoticed("could not be read"));
  recordForShownGoal();
  ASSERT_TRUE(becomes([&] { return display.waiting.size() == 1; }));
  EXPECT_THAT(display.waiting[0].reason.toStdString(), HasSubstr("was moved or removed"));
  import({goal("g1", "One")});
  ASSERT_TRUE(isNoticed("is shown as it is now")) << display.notices.back();
  EXPECT_EQ(display.waiting.size(), 1u);
  EXPECT_THAT(outcomes("g1"), IsEmpty());
  controller->recordWaiting();
  EXPECT_TRUE(becomes([&] { return outcomes("g1").size() == 1; }));
  EXPECT_TRUE(becomes([&] { return display.waiting.empty(); }));
}

TEST_F(DeskControllerTest, ShowsWhatAnotherProgramChanges) {
  import({goal("g1", "One")});
  start();
  ASSERT_TRUE(opens("g1"));
  import({goal("g2", "Two")});
  EXPECT_TRUE(becomes([&] { return display.goals.size() == 2; }));
  EXPECT_EQ(display.goalID(), "g1") << "the open goal stays open";
}

TEST_F(DeskControllerTest, AMissingGoalIsAFailureInPlaceOfTheGoal) {
  import({goal("g1", "One")});
  start("g9");
  ASSERT_TRUE(becomes([&] { return !display.failure.empty(); }));
  EXPECT_THAT(display.failure, HasSubstr("g9"));
  EXPECT_EQ(display.goalID(), "");
  EXPECT_EQ(display.timesKept, 0);
}

TEST_F(DeskControllerTest, AGoalThatCannotBeLoadedAgainKeepsItsScreenAlsoAfterAnotherOne) {
  import({goal("g1", "One"), goal("g2", "Two")});
  start();
  ASSERT_TRUE(opens("g1"));
  controller->openGoal("g2");
  ASSERT_TRUE(opens("g2"));
  ASSERT_EQ(RawDatabase(file).run("UPDATE people SET position = 5 WHERE goal = 1"), "");
  controller->openGoal("g1");
  ASSERT_TRUE(becomes([&] { return !display.notices.empty() || !display.failure.empty(); }));
  EXPECT_GT(display.timesKept, 0);
  EXPECT_EQ(display.failure, "");
  ASSERT_FALSE(display.notices.empty());
  EXPECT_THAT(display.notices.back(), HasSubstr("The goal could not be loaded."));
}

TEST_F(DeskControllerTest, APathHasTheNamesOfTheGoalThatShowsIt) {
  auto other = goal("g2", "Two");
  other.people = {build::person("p1", "Adele", {}, GoalWhyDTO::connection(2))};
  import({goal("g1", "One"), other});
  start();
  ASSERT_TRUE(opens("g1"));
  controller->openGoal("g2");  // the screen of the first goal takes presses until this is loaded
  controller->openPath("g1", {{"p1"}, GoalWhyDTO::connection(2), 1});
  ASSERT_TRUE(becomes([&] { return display.timesDetailed == 1; }));
  EXPECT_THAT(display.namesOnPath, ElementsAre("Ada"));
}

TEST_F(DeskControllerTest, OpenDetailsAreReadAgainWhenTheStoreChanges) {
  import({goal("g1", "One")});
  start();
  ASSERT_TRUE(opens("g1"));
  controller->openPerson("p1");
  ASSERT_TRUE(becomes([&] { return display.timesDetailed == 1; }));
  import({goal("g2", "Two")});
  ASSERT_TRUE(becomes([&] { return display.timesDetailed == 2; }));
  controller->closeDetails();
  import({goal("g3", "Three")});
  ASSERT_TRUE(becomes([&] { return display.goals.size() == 3; }));
  EXPECT_EQ(display.timesDetailed, 2);
}

TEST_F(DeskControllerTest, DetailsThatCouldNotBeLookedUpDoNotAppearLater) {
  import({goal("g1", "One")});
  start();
  ASSERT_TRUE(opens("g1"));
  ASSERT_EQ(RawDatabase(file).run("UPDATE person_evidence SET position = 5"), "");
  controller->openPerson("p1");
  ASSERT_TRUE(becomes([&] { return display.timesMissing == 1; }));
  ASSERT_EQ(RawDatabase(file).run("UPDATE person_evidence SET position = 0"), "");
  import({goal("g2", "Two")});
  ASSERT_TRUE(becomes([&] { return display.goals.size() == 2; }));
  import({goal("g3", "Three")});
  ASSERT_TRUE(becomes([&] { return display.goals.size() == 3; }));
  EXPECT_EQ(display.timesDetailed, 0);
}

}  // namespace
}  // namespace vemra::desk
