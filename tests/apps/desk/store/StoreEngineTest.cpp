#include "VemraGoalSurface/model/GoalResultProjectionReader.hpp"
#include "VemraPlatform/task/Start.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <chrono>
#include <coroutine>
#include <filesystem>
#include <future>
#include <set>
#include <thread>

#include <gtest/gtest.h>

namespace vemra::desk {
namespace {
class StoreEngineTest : public StoreFile {
 protected:
  StoreEngineTest() { GoalStore::open(file).import({goal("g1", "One"), goal("g2", "Two")}); }

  std::shared_ptr<StoreEngine> engine = std::make_shared<StoreEngine>(file);
};

TEST_F(StoreEngineTest, AnswersWithTheStoresResult) {
  EXPECT_EQ(task::wait(engine->getGoalSnapshot("g1")), GoalStore::open(file).result("g1"));
}

TEST_F(StoreEngineTest, AnswersOnAThreadOfItsOwn) {
  std::set<std::thread::id> threads;
  for (int i = 0; i < 5; ++i) {
    std::promise<std::thread::id> ended;
    task::start(
        GoalResultProjectionReader::makeSnapshot(engine, "g1"),
        [&](task::Result<GoalResultSnapshotV1>) { ended.set_value(std::this_thread::get_id()); });
    threads.insert(ended.get_future().get());
  }
  EXPECT_EQ(threads.size(), 1u);
  EXPECT_FALSE(threads.contains(std::this_thread::get_id()));
}

TEST_F(StoreEngineTest, IsLazy) {
  { auto never = engine->record("g1", {GoalOutcomeSubjectKind::path, {}, {}, {}, {}}); }
  EXPECT_TRUE(task::wait(engine->getGoalSnapshot("g1")).outcomes.empty());
}

TEST_F(StoreEngineTest, RethrowsTheExceptionOfTheStore) {
  EXPECT_THROW(task::wait(engine->getGoalSnapshot("nope")), UnknownGoal);
  EXPECT_EQ(task::wait(engine->getGoalSnapshot("g2")).goal.title, "Two");
}

TEST_F(StoreEngineTest, TriesAgainAfterAStoreThatCouldNotBeOpened) {
  const std::string later = folder.file("later/goals.sqlite");
  StoreEngine waiting(later);
  EXPECT_THROW(task::wait(waiting.goals()), StoreError);
  std::filesystem::create_directory(folder.path() / "later");
  EXPECT_TRUE(task::wait(waiting.goals()).empty());
}

TEST_F(StoreEngineTest, WaitsForAnotherProgramUpToItsTimeLimit) {
  using Clock = std::chrono::steady_clock;
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  const std::chrono::milliseconds patience(200);
  StoreEngine waiting(file, patience);
  const auto start = Clock::now();
  EXPECT_THROW(task::wait(waiting.import({goal("g3", "Three")})), StoreBusy);
  EXPECT_GE(Clock::now() - start, patience / 2);
  EXPECT_LT(Clock::now() - start, usualPatience / 2);
  ASSERT_EQ(other.run("ROLLBACK"), "");
  task::wait(waiting.import({goal("g3", "Three")}));
  EXPECT_EQ(task::wait(waiting.goals()).size(), 3u);
}

TEST_F(StoreEngineTest, CarriesOutTasksInTheOrderOfStarting) {
  std::vector<std::string> order;
  for (int i = 0; i < 50; ++i) {
    task::start(engine->record("g1", {GoalOutcomeSubjectKind::person,
                                      "p1",
                                      GoalOutcomeValue::helped,
                                      std::to_string(i),
                                      {}}),
                [&](task::Result<GoalOutcomeDTO> result) {
                  order.push_back(*std::move(result).take().note);
                });
  }
  engine->finish();
  ASSERT_EQ(order.size(), 50u);
  for (std::size_t i = 0; i < 50; ++i) EXPECT_EQ(order[i], std::to_string(i));
  const auto outcomes = task::wait(engine->getGoalSnapshot("g1")).outcomes;
  for (std::size_t i = 0; i < 50; ++i) EXPECT_EQ(outcomes[i].note, std::to_string(i));
}

/// A `thread_local` of this type fulfils a promise at the very end of its thread.
struct AtThreadEnd {
  std::promise<void>* ended = nullptr;
  ~AtThreadEnd() {
    if (ended) ended->set_value();
  }
};

TEST_F(StoreEngineTest, MayBeDestroyedWhileATaskRunsAndEndsItsThread) {
  for (int i = 0; i < 50; ++i) {
    std::string title;
    std::promise<void> promise;
    auto ended = promise.get_future();
    auto shortLived = std::make_shared<StoreEngine>(file);
    task::start(GoalResultProjectionReader::makeSnapshot(shortLived, "g2"),
                [&](task::Result<GoalResultSnapshotV1> result) {
                  thread_local AtThreadEnd atEnd;
                  title = std::move(result).take().goal().title;
                  atEnd.ended = &promise;
                });
    shortLived.reset();  // the task may be the last owner, and end on the engine's thread
    ASSERT_EQ(ended.wait_for(std::chrono::seconds(30)), std::future_status::ready)
        << "the thread outlives its engine";
    EXPECT_EQ(title, "Two");
  }
}

/// Suspends a coroutine until the test resumes it.
struct Hold {
  std::coroutine_handle<>* held;
  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<> coroutine) const { *held = coroutine; }
  void await_resume() const noexcept {}
};

/// Queries an engine without another owner, and keeps the task that it awaited.
task::Task<> askAndHold(std::shared_ptr<StoreEngine> engine, std::string goalID,
                        std::promise<void>* threadEnded, std::coroutine_handle<>* held) {
  task::Task<GetGoalSnapshotResponse> asked = engine->getGoalSnapshot(std::move(goalID));
  engine.reset();
  auto ending = std::move(asked).result();
  co_await ending;
  const auto watchThisThread = [threadEnded] {
    thread_local AtThreadEnd atEnd;
    atEnd.ended = threadEnded;
  };
  watchThisThread();
  const Hold hold{held};
  co_await hold;
}

TEST_F(StoreEngineTest, AnAwaitedTaskKeepsNoThreadAlive) {
  for (const std::string goalID : {"g1", "no such goal"}) {
    std::promise<void> threadEnded;
    std::coroutine_handle<> held;
    task::start(askAndHold(std::make_shared<StoreEngine>(file), goalID, &threadEnded, &held),
                [](const task::Result<void>&) {});
    ASSERT_EQ(threadEnded.get_future().wait_for(std::chrono::seconds(30)),
              std::future_status::ready)
        << goalID;
    held.resume();
  }
}

TEST_F(StoreEngineTest, NoticesChangesByOthersAndNotItsOwn) {
  const auto version = [&] { return task::wait(engine->version()); };
  const auto first = version();
  EXPECT_EQ(version(), first);
  task::wait(engine->record("g1", {GoalOutcomeSubjectKind::path, {}, {}, {}, {}}));
  EXPECT_EQ(version(), first);
  GoalStore::open(file).import({goal("g1", "Changed elsewhere")});
  EXPECT_NE(version(), first);
}

TEST_F(StoreEngineTest, AStoreForReadingOnlyFollowsChangesAndMakesNone) {
  StoreEngine reader(file, usualPatience, StoreUse::reading);
  EXPECT_EQ(task::wait(reader.goals()).size(), 2u);
  GoalStore::open(file).import({goal("g3", "Three")});
  EXPECT_EQ(task::wait(reader.goals()).size(), 3u);
  const GoalOutcomeRecordingInput input{GoalOutcomeSubjectKind::person, "p1",
                                        GoalOutcomeValue::helped, std::nullopt, std::nullopt};
  const auto refusal = [&](auto task) -> std::string {
    try {
      task::wait(std::move(task));
    } catch (const StoreError& error) {
      return error.what();
    }
    return "";
  };
  EXPECT_EQ(refusal(reader.record("g1", input)), file + ": is open for reading only");
  EXPECT_EQ(refusal(reader.import({goal("g4", "Four")})), file + ": is open for reading only");
  EXPECT_EQ(task::wait(reader.goals()).size(), 3u);
}

TEST_F(StoreEngineTest, AStoreForReadingOnlyIsNotCreated) {
  const std::string missing = folder.file("missing.sqlite");
  StoreEngine reader(missing, usualPatience, StoreUse::reading);
  EXPECT_THROW(task::wait(reader.goals()), StoreError);
  EXPECT_FALSE(std::filesystem::exists(missing));
}

}  // namespace
}  // namespace vemra::desk
