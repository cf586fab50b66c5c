#include "VemraGoalSurface/model/GoalResultProjectionReader.hpp"
#include "VemraPlatform/task/MainActor.hpp"
#include "VemraPlatform/task/Start.hpp"
#include "tests/VemraGoalSurface/model/SampleSnapshot.hpp"
#include "tests/VemraGoalSurface/presentation/CoverageOfDeath.hpp"

#include <coroutine>
#include <stdexcept>
#include <thread>
#include <type_traits>

#include <gtest/gtest.h>

namespace vemra {
namespace {

using GoalResultProjectionReader::makeSnapshot;

// Answers every query at once with one response and logs the ids of the queries.
class RecordingEngine : public GoalToolExecutor {
 public:
  explicit RecordingEngine(GetGoalSnapshotResponse answer = sample::response())
      : answer_(std::move(answer)) {}
  task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string goalID) override {
    askedFor.push_back(std::move(goalID));
    co_return answer_;
  }
  std::vector<std::string> askedFor;

 private:
  GetGoalSnapshotResponse answer_;
};

TEST(MakeSnapshot, GivesTheResponseFieldForField) {
  const GetGoalSnapshotResponse answer = sample::response();
  const GoalResultSnapshotV1 snapshot =
      task::wait(makeSnapshot(std::make_shared<RecordingEngine>(answer), "goal"));
  EXPECT_TRUE(snapshot == GoalResultSnapshotV1(answer.goal, answer.people, answer.paths,
                                               answer.group, answer.coverage, answer.outcomes));
  EXPECT_EQ(snapshot.people().data(), answer.people.data());
  EXPECT_EQ(snapshot.outcomes().data(), answer.outcomes.data());
}

TEST(MakeSnapshot, EmptyListsStayEmpty) {
  GetGoalSnapshotResponse answer;
  answer.goal = sample::goal();
  answer.coverage = sample::coverage();
  const GoalResultSnapshotV1 snapshot =
      task::wait(makeSnapshot(std::make_shared<RecordingEngine>(answer), "goal"));
  EXPECT_TRUE(snapshot.people().empty());
  EXPECT_TRUE(snapshot.paths().empty());
  EXPECT_TRUE(snapshot.group().empty());
  EXPECT_TRUE(snapshot.outcomes().empty());
  EXPECT_TRUE(snapshot == GoalResultSnapshotV1(answer.goal, {}, {}, {}, answer.coverage, {}));
}

TEST(MakeSnapshot, PassesTheIdToTheEngineByteForByte) {
  const auto engine = std::make_shared<RecordingEngine>();
  const std::vector<std::string> ids = {"goal-1",     " \t goal \n ",
                                        "",           "   ",
                                        "Rene\u0301", "Ren\u00e9",
                                        "a\xC3 b",    std::string("a\0b", 3),
                                        "\uFEFFgoal", std::string(100000, 'x')};
  for (const std::string& id : ids) task::wait(makeSnapshot(engine, id));
  EXPECT_EQ(engine->askedFor, ids);
}

TEST(MakeSnapshot, EveryCallIsOneQuery) {
  const auto engine = std::make_shared<RecordingEngine>();
  const GoalResultSnapshotV1 first = task::wait(makeSnapshot(engine, "goal"));
  EXPECT_EQ(engine->askedFor.size(), 1U);
  const GoalResultSnapshotV1 second = task::wait(makeSnapshot(engine, "goal"));
  EXPECT_EQ(engine->askedFor.size(), 2U) << "nothing is kept between calls";
  EXPECT_NE(&first.goal(), &second.goal());
}

TEST(MakeSnapshot, BeginsWhenItIsAwaited) {
  const auto engine = std::make_shared<RecordingEngine>();
  {
    const task::Task<GoalResultSnapshotV1> neverAwaited = makeSnapshot(engine, "goal");
    EXPECT_TRUE(engine->askedFor.empty());
  }
  EXPECT_TRUE(engine->askedFor.empty());
  EXPECT_EQ(engine.use_count(), 1);
}

TEST(MakeSnapshot, CallsTheOverrideOfASubclass) {
  class Subclass : public RecordingEngine {
   public:
    task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string) override {
      GetGoalSnapshotResponse other;
      other.goal.title = "the subclass's own";
      co_return other;
    }
  };
  const std::shared_ptr<RecordingEngine> engine = std::make_shared<Subclass>();
  EXPECT_EQ(task::wait(makeSnapshot(engine, "goal")).goal().title, "the subclass's own");
  EXPECT_TRUE(engine->askedFor.empty());
}

// The awaited task stays alive after the await, and must not keep the engine alive.
template <class Engine>
task::Task<> awaitAndLookForTheEngine(std::shared_ptr<Engine> engine) {
  const std::weak_ptr<Engine> observer = engine;
  task::Task<GoalResultSnapshotV1> awaited = makeSnapshot(std::move(engine), "goal");
  EXPECT_FALSE(observer.expired());
  auto ending = std::move(awaited).result();
  const task::Result<GoalResultSnapshotV1> ended = co_await ending;
  EXPECT_EQ(ended.hasValue(), (std::is_same_v<Engine, RecordingEngine>));
  EXPECT_TRUE(observer.expired());
}

TEST(MakeSnapshot, ReleasesTheEngineBeforeTheCallerContinuesWithTheSnapshot) {
  task::wait(awaitAndLookForTheEngine(std::make_shared<RecordingEngine>()));
}

// failures

struct EngineError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class FailingEngine : public GoalToolExecutor {
 public:
  task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string) override {
    try {
      throw EngineError("the store is locked");
    } catch (const EngineError& error) {
      thrown = &error;
      throw;
    }
    co_return GetGoalSnapshotResponse{};
  }
  const EngineError* thrown = nullptr;
};

TEST(MakeSnapshot, RethrowsTheSameExceptionObject) {
  const auto engine = std::make_shared<FailingEngine>();
  try {
    task::wait(makeSnapshot(engine, "goal"));
    FAIL() << "the engine's error got lost";
  } catch (const EngineError& error) {
    EXPECT_EQ(&error, engine->thrown);
    EXPECT_STREQ(error.what(), "the store is locked");
  }
}

TEST(MakeSnapshot, ReleasesTheEngineBeforeTheCallerContinuesWithAnError) {
  task::wait(awaitAndLookForTheEngine(std::make_shared<FailingEngine>()));
}

// An override need not be a coroutine: it may throw before there is a task.
class RefusingEngine : public GoalToolExecutor {
 public:
  task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string) override { throw 42; }
};

TEST(MakeSnapshot, ReleasesAnEngineThatThrowsBeforeThereIsATask) {
  task::wait(awaitAndLookForTheEngine(std::make_shared<RefusingEngine>()));
}

TEST(MakeSnapshot, RethrowsAnExceptionFromBeforeThereIsATask) {
  task::Task<GoalResultSnapshotV1> snapshot =
      makeSnapshot(std::make_shared<RefusingEngine>(), "goal");
  try {
    task::wait(std::move(snapshot));
    FAIL() << "the engine's error got lost";
  } catch (int code) {
    EXPECT_EQ(code, 42);
  }
}

TEST(MakeSnapshot, AFailedQueryIsNotRepeated) {
  class CountingEngine : public GoalToolExecutor {
   public:
    task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string) override {
      ++queries;
      throw EngineError("no");
    }
    int queries = 0;
  };
  const auto engine = std::make_shared<CountingEngine>();
  EXPECT_THROW(task::wait(makeSnapshot(engine, "goal")), EngineError);
  EXPECT_EQ(engine->queries, 1);
}

// A query may use its engine until its frame is destroyed.
TEST(MakeSnapshot, KeepsTheEngineUntilTheQueryIsDestroyed) {
  // Lives in the query's frame.
  struct AtTheEnd {
    const std::shared_ptr<bool> engineIsGone;
    bool* cameFirst;
    ~AtTheEnd() { *cameFirst = !*engineIsGone; }
  };
  class Engine : public GoalToolExecutor {
   public:
    explicit Engine(bool* queryCameFirst) : queryCameFirst_(queryCameFirst) {}
    ~Engine() override { *isGone_ = true; }
    task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string) override {
      const AtTheEnd atTheEnd{isGone_, queryCameFirst_};
      return answer(atTheEnd);
    }

   private:
    static task::Task<GetGoalSnapshotResponse> answer(AtTheEnd) { co_return sample::response(); }

    const std::shared_ptr<bool> isGone_ = std::make_shared<bool>(false);
    bool* queryCameFirst_;
  };
  bool queryCameFirst = false;
  task::wait(makeSnapshot(std::make_shared<Engine>(&queryCameFirst), "goal"));
  EXPECT_TRUE(queryCameFirst);
}

// threads

// Lets every query wait until the test answers it, in any order and from any thread.
class WaitingEngine : public GoalToolExecutor {
 public:
  task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string goalID) override {
    const Arrival arrival{&waiting};
    co_await arrival;
    if (goalID.empty()) throw EngineError("no id");
    GetGoalSnapshotResponse answer = sample::response();
    answer.goal.id = goalID;
    co_return answer;
  }
  std::vector<std::coroutine_handle<>> waiting;

 private:
  struct Arrival {
    std::vector<std::coroutine_handle<>>* waiting;
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> query) const { waiting->push_back(query); }
    void await_resume() const noexcept {}
  };
};

TEST(MakeSnapshot, ConcurrentCallsForOneGoalMakeAQueryEach) {
  const auto engine = std::make_shared<WaitingEngine>();
  std::vector<std::optional<GoalResultSnapshotV1>> snapshots(2);
  for (auto& snapshot : snapshots) {
    task::start(makeSnapshot(engine, "goal"), [&snapshot](task::Result<GoalResultSnapshotV1> end) {
      snapshot.emplace(std::move(end).take());
    });
  }
  ASSERT_EQ(engine->waiting.size(), 2U);
  engine->waiting[1].resume();
  EXPECT_FALSE(snapshots[0].has_value());
  ASSERT_TRUE(snapshots[1].has_value());
  engine->waiting[0].resume();
  ASSERT_TRUE(snapshots[0].has_value());
  EXPECT_TRUE(*snapshots[0] == *snapshots[1]);
  EXPECT_NE(&snapshots[0]->goal(), &snapshots[1]->goal());
}

TEST(MakeSnapshot, ContinuesOnTheThreadThatResumesIt) {
  const auto engine = std::make_shared<WaitingEngine>();
  std::optional<GoalResultSnapshotV1> snapshot;
  std::thread::id endedOn;
  bool endedOnTheMainThread = true;
  task::start(makeSnapshot(engine, "goal"), [&](task::Result<GoalResultSnapshotV1> end) {
    snapshot.emplace(std::move(end).take());
    endedOn = std::this_thread::get_id();
    endedOnTheMainThread = task::MainActor::isCurrent();
  });
  ASSERT_EQ(engine->waiting.size(), 1U);
  std::thread engineThread([&engine] { engine->waiting[0].resume(); });
  const std::thread::id engineThreadID = engineThread.get_id();
  engineThread.join();
  ASSERT_TRUE(snapshot.has_value());
  EXPECT_EQ(snapshot->goal().id, "goal");
  EXPECT_EQ(endedOn, engineThreadID);
  EXPECT_FALSE(endedOnTheMainThread);
}

TEST(MakeSnapshot, RethrowsAnErrorOnTheThreadThatResumesIt) {
  const auto engine = std::make_shared<WaitingEngine>();
  std::exception_ptr error;
  task::start(makeSnapshot(engine, ""),
              [&](task::Result<GoalResultSnapshotV1> end) { error = end.exception(); });
  std::thread([&engine] { engine->waiting[0].resume(); }).join();
  ASSERT_NE(error, nullptr);
  EXPECT_THROW(std::rethrow_exception(error), EngineError);
}

// The main thread is blocked in join(): a task that changed to it would never end.
TEST(MakeSnapshot, NeedsNoMainThread) {
  std::optional<GoalResultSnapshotV1> snapshot;
  std::thread([&snapshot] {
    snapshot.emplace(task::wait(makeSnapshot(std::make_shared<RecordingEngine>(), "goal")));
  }).join();
  ASSERT_TRUE(snapshot.has_value());
  EXPECT_TRUE(*snapshot == sample::snapshot());
}

TEST(MakeSnapshotDeathTest, ANullExecutorStopsTheProcessInTheCallThatPassesIt) {
  EXPECT_DEATH(
      {
        testing::keepCoverageOnAbort();
        const auto task = makeSnapshot(nullptr, "goal");
      },
      "makeSnapshot: the executor is null. Pass the object that answers the query");
}

}  // namespace
}  // namespace vemra
