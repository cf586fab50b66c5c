#include "apps/desk/store/GoalStore.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/program/DeskTest.hpp"

#include <chrono>
#include <memory>
#include <set>
#include <thread>

namespace vemra::desk {
namespace {

using ManyProcessesTest = DeskTest;

TEST_F(ManyProcessesTest, MakeAStoreAtOnceAndLoseNothing) {
  for (int round = 0; round < 5; ++round) {
    const std::string file = folder.file("store" + std::to_string(round));
    std::vector<std::unique_ptr<Process>> processes;
    for (int i = 0; i < 8; ++i) {
      const std::string id = "g" + std::to_string(i);
      const std::string path = document(id + ".json", goal(id, "t"));
      processes.push_back(
          std::make_unique<Process>(vemraDesk, commandLine({"import", "--store", file, path})));
    }
    for (const auto& process : processes) {
      const Ending ending = process->wait();
      EXPECT_EQ(ending.exitCode, 0) << ending.diagnostics;
    }
    EXPECT_EQ(GoalStore::open(file).goals().size(), 8u);
  }
}

TEST_F(ManyProcessesTest, ImportAndRecordIntoOneGoalAndKeepEveryOutcome) {
  GoalStore mine = GoalStore::open(store);
  mine.import({goal("g1", "t")});
  std::vector<std::unique_ptr<Process>> processes;
  for (int i = 0; i < 6; ++i) {
    const std::string name = std::to_string(i);
    const auto result = goal("g1", "by " + name, {outcome("o" + name, "p1", {})});
    processes.push_back(std::make_unique<Process>(
        vemraDesk, commandLine({"import", "--store", store, document(name + ".json", result)})));
  }
  for (int i = 0; i < 40; ++i) {
    mine.record("g1", {GoalOutcomeSubjectKind::person, "p1", {}, std::to_string(i), {}});
  }
  for (const auto& process : processes) {
    const Ending ending = process->wait();
    EXPECT_EQ(ending.exitCode, 0) << ending.diagnostics;
  }
  std::set<std::string> ids;
  for (const auto& outcome : mine.outcomes("g1")) ids.insert(outcome.id);
  EXPECT_EQ(ids.size(), 46u);
}

TEST_F(ManyProcessesTest, WaitForABusyWriter) {
  GoalStore::open(store);
  RawDatabase other(store);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  Process process(vemraDesk,
                  commandLine({"import", "--store", store, document("a.json", goal("g1", "t"))}));
  std::this_thread::sleep_for(std::chrono::milliseconds(400));
  EXPECT_EQ(outputOf({"goals", "--store", store}), "") << "readers need not wait";
  ASSERT_EQ(other.run("COMMIT"), "");
  const Ending ending = process.wait();
  EXPECT_EQ(ending.exitCode, 0) << ending.diagnostics;
  EXPECT_EQ(outputOf({"goals", "--store", store}), "g1\tt\n");
}

TEST_F(ManyProcessesTest, EveryCommandWorksWhileTheStoreIsOpenElsewhere) {
  GoalStore open = GoalStore::open(store);
  EXPECT_EQ(outputOf({"import", "--store", store, document("a.json", goal("g1", "t"))}), "");
  EXPECT_EQ(open.goals().size(), 1u);
  const auto id =
      open.record("g1", {GoalOutcomeSubjectKind::person, "p1", {}, std::nullopt, {}}).id;
  EXPECT_EQ(outputOf({"goals", "--store", store}), "g1\tt\n");
  EXPECT_THAT(outputOf({"outcomes", "--store", store, "--goal", "g1"}), ::testing::HasSubstr(id));
  EXPECT_THAT(outputOf({"export", "--store", store, "--goal", "g1"}), ::testing::HasSubstr(id));
}

// The import is killed at moments spread over its run: afterwards the goal has its old or its new
// state, and the store is undamaged.
TEST_F(ManyProcessesTest, AKilledImportLeavesTheOldStateOrTheNewState) {
  const auto made = [](const std::string& title, std::size_t count) {
    auto result = goal("g1", title);
    result.people = std::vector<GoalPersonCandidateDTO>(count, result.people[0]);
    return result;
  };
  outputOf({"import", "--store", store, document("old.json", made("old", 50))});
  const std::string next = document("new.json", made("new", 20'000));

  using Clock = std::chrono::steady_clock;
  const std::string measured = folder.file("measured.sqlite");
  const auto start = Clock::now();
  outputOf({"import", "--store", measured, next});
  const auto whole = Clock::now() - start;

  int killed = 0;
  for (int i = 1; i <= 10; ++i) {
    Process process(vemraDesk, commandLine({"import", "--store", store, next}));
    std::this_thread::sleep_for(whole * i / 10);
    process.kill(SIGKILL);
    const Ending ending = process.wait();
    const auto after = GoalStore::open(store).result("g1");
    EXPECT_EQ(RawDatabase(store).value("PRAGMA integrity_check"), "ok");
    if (ending.signal == SIGKILL) ++killed;
    if (ending.signal == 0) {
      EXPECT_EQ(after.goal.title, "new");
    }
    if (after.goal.title == "old") {
      EXPECT_EQ(after, made("old", 50));
    } else {
      EXPECT_EQ(after, made("new", 20'000));
      GoalStore::open(store).import({made("old", 50)});
    }
  }
  EXPECT_GE(killed, 2)
      << "the import must be interrupted in the middle, or the test proves nothing";
}

}  // namespace
}  // namespace vemra::desk
