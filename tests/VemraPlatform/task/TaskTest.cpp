#include "VemraPlatform/task/Start.hpp"
#include "VemraPlatform/task/Task.hpp"
#include "tests/VemraPlatform/task/BufferedStandardError.hpp"
#include "tests/VemraPlatform/task/Gate.hpp"

#include <memory>
#include <stdexcept>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using task::Result;
using task::start;
using task::Task;
using task::wait;

static_assert(!std::is_copy_constructible_v<Task<int>> && !std::is_copy_assignable_v<Task<int>>);
static_assert(std::is_nothrow_move_constructible_v<Task<int>>);
static_assert(std::is_nothrow_move_assignable_v<Task<int>>);

Task<int> count(std::shared_ptr<int> runs) {
  ++*runs;
  co_return *runs;
}

Task<> touch(std::shared_ptr<int> runs) {
  ++*runs;
  co_return;
}

TEST(Task, GivesItsValue) {
  EXPECT_EQ(wait(give(7)), 7);
}

TEST(Task, DoesNotStartUntilItIsAwaited) {
  const auto runs = std::make_shared<int>(0);
  Task<int> task = count(runs);
  EXPECT_EQ(*runs, 0);
  EXPECT_EQ(wait(std::move(task)), 1);
}

TEST(Task, FreesItsArgumentsWhenItNeverStarts) {
  const auto runs = std::make_shared<int>(0);
  {
    const Task<int> task = count(runs);
    EXPECT_EQ(runs.use_count(), 2);
  }
  EXPECT_EQ(runs.use_count(), 1);
  EXPECT_EQ(*runs, 0);
}

TEST(Task, MovesWithItsWork) {
  const auto runs = std::make_shared<int>(0);
  Task<int> first = count(runs);
  Task<int> second = std::move(first);
  first = std::move(second);
  Task<int> third = give(1);
  third = std::move(first);
  EXPECT_EQ(wait(std::move(third)), 1);
  EXPECT_EQ(runs.use_count(), 1);
}

TEST(Task, IsReplacedByAnAssignmentAndFreesItsArguments) {
  const auto held = std::make_shared<int>(1);
  Task<int> task = [](std::shared_ptr<int> value) -> Task<int> { co_return *value; }(held);
  task = give(2);
  EXPECT_EQ(held.use_count(), 1);
  EXPECT_EQ(wait(std::move(task)), 2);
}

TEST(Task, GivesAMoveOnlyValue) {
  struct Source {
    static Task<std::unique_ptr<int>> make() { co_return std::make_unique<int>(5); }
    static Task<std::unique_ptr<int>> passOn() {
      auto made = make();
      co_return co_await std::move(made);
    }
  };
  EXPECT_EQ(*wait(Source::passOn()), 5);
}

TEST(Task, GivesAValueWithoutADefaultConstructor) {
  struct Name {
    explicit Name(std::string given) : text(std::move(given)) {}
    std::string text;
  };
  struct Source {
    static Task<Name> make() { co_return Name("given"); }
  };
  EXPECT_EQ(wait(Source::make()).text, "given");
}

TEST(Task, WithoutAValueRunsToItsEnd) {
  const auto runs = std::make_shared<int>(0);
  wait(touch(runs));
  EXPECT_EQ(*runs, 1);
  EXPECT_EQ(runs.use_count(), 1);
}

/// An error that cannot be copied and is recognised by its address.
struct Failure : std::runtime_error {
  explicit Failure(const Failure** place) : std::runtime_error("failed") { *place = this; }
};

Task<int> fail(const Failure** place) {
  throw Failure(place);
  co_return 0;
}

Task<int> passOn(Task<int> task) {
  co_return co_await std::move(task);
}

TEST(Task, RethrowsTheSameExceptionObject) {
  const Failure* thrown = nullptr;
  try {
    wait(passOn(passOn(passOn(fail(&thrown)))));
    FAIL() << "nothing was thrown";
  } catch (const Failure& caught) {
    EXPECT_EQ(&caught, thrown);
  }
}

TEST(Task, WithoutAValueRethrowsToo) {
  struct Source {
    static Task<> fail(const Failure** place) {
      co_await std::suspend_never();
      throw Failure(place);
    }
  };
  const Failure* thrown = nullptr;
  try {
    wait(Source::fail(&thrown));
    FAIL() << "nothing was thrown";
  } catch (const Failure& caught) {
    EXPECT_EQ(&caught, thrown);
  }
}

TEST(Task, MayCatchAndContinue) {
  struct Source {
    static Task<std::string> recover(const Failure** place) {
      std::string message;
      try {
        auto failing = fail(place);
        co_await std::move(failing);
      } catch (const Failure& failure) {
        message = failure.what();
      }
      auto after = give(2);
      const int value = co_await std::move(after);
      co_return message + std::to_string(value);
    }
  };
  const Failure* thrown = nullptr;
  EXPECT_EQ(wait(Source::recover(&thrown)), "failed2");
}

Task<int> sum(int count) {
  int total = 0;
  for (int index = 0; index < count; ++index) {
    auto next = give(1);
    total += co_await std::move(next);
  }
  co_return total;
}

TEST(Task, AwaitsInALoopDoNotAccumulateOnTheStack) {
  EXPECT_EQ(wait(sum(1000000)), 1000000);
}

Task<int> depth(int levels) {
  if (levels == 0) co_return 0;
  auto deeper = depth(levels - 1);
  co_return 1 + co_await std::move(deeper);
}

TEST(Task, AwaitsInAChainAreResumedInOrder) {
  EXPECT_EQ(wait(depth(5000)), 5000);
}

TEST(Task, ALongChainNeedsNoStackWhereTransferIsAJump) {
  if (!task::coroutine::transferIsAJump) GTEST_SKIP() << "not with this compiler";
  EXPECT_EQ(wait(depth(200000)), 200000);
}

Task<int> throughGate(Gate* gate, int value) {
  co_await *gate;
  co_return value;
}

TEST(Task, WaitsUntilItIsResumed) {
  Gate gate;
  std::optional<int> value;
  start(passOn(passOn(throughGate(&gate, 3))),
        [&](Result<int> result) { value = std::move(result).take(); });
  EXPECT_TRUE(gate.hasWaiter());
  EXPECT_EQ(value, std::nullopt);
  gate.open();
  EXPECT_EQ(value, 3);
}

Task<int> openAndGive(Gate* gate, int value) {
  gate->open();
  co_return value;
}

Task<int> addOne(Task<int> task) {
  co_return 1 + co_await std::move(task);
}

TEST(Task, MayEndWhileAnotherTaskIsBeingStarted) {
  Gate gate;
  std::vector<int> ends;
  const auto note = [&](Result<int> result) { ends.push_back(std::move(result).take()); };
  start(addOne(throughGate(&gate, 3)), note);
  EXPECT_EQ(ends, std::vector<int>());
  start(addOne(openAndGive(&gate, 7)), note);
  EXPECT_EQ(ends, (std::vector<int>{4, 8})) << "each has a waiter of its own";
}

/// Continues inside a task that is started meanwhile.
struct WithinAnother {
  Task<int> (*other)(std::coroutine_handle<>);

  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<> waiter) const {
    start(addOne(other(waiter)), [](Result<int>) {});
  }
  void await_resume() const noexcept {}
};

TEST(Task, MayEndInsideATaskThatItStarted) {
  struct Source {
    static Task<int> resume(std::coroutine_handle<> waiter) {
      waiter.resume();
      co_return 0;
    }
    static Task<int> wait() {
      const WithinAnother another{&resume};
      co_await another;
      co_return 5;
    }
  };
  int calls = 0;
  start(addOne(Source::wait()), [&](Result<int> result) {
    ++calls;
    EXPECT_EQ(std::move(result).take(), 6);
  });
  EXPECT_EQ(calls, 1);
}

/// A coroutine that its owner may destroy at any time.
class Owned {
 public:
  struct promise_type {
    Owned get_return_object() { return Owned(Handle::from_promise(*this)); }
    std::suspend_never initial_suspend() const noexcept { return {}; }
    std::suspend_always final_suspend() const noexcept { return {}; }
    void return_void() const noexcept {}
    void unhandled_exception() const noexcept { std::abort(); }
  };

  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  ~Owned() { coroutine_.destroy(); }

 private:
  using Handle = std::coroutine_handle<promise_type>;
  explicit Owned(Handle coroutine) : coroutine_(coroutine) {}

  Handle coroutine_;
};

Owned awaitThroughGate(Gate* gate) {
  auto task = throughGate(gate, 3);
  co_await std::move(task);
}

TEST(Task, IsDestroyedWithTheCoroutineThatAwaitedItWhenItHasEnded) {
  Gate gate;
  const Owned owned = awaitThroughGate(&gate);
  gate.open();
}

TEST(TaskDeathTest, DestroyedWhileItIsUnderWayStopsTheProcessAndSaysWhatToDo) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  Gate gate;
  EXPECT_EXIT({ const Owned owned = awaitThroughGate(&gate); }, ::testing::KilledBySignal(SIGABRT),
              "A task was destroyed while it was under way. Keep it until it has ended");
}

TEST(TaskDeathTest, AwaitedTwiceStopsTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  struct Source {
    static Task<int> twice() {
      auto once = give(1);
      const int first = co_await std::move(once);
      co_return first + co_await std::move(once);
    }
  };
  EXPECT_EXIT(wait(Source::twice()), ::testing::KilledBySignal(SIGABRT), "awaited");
}

TEST(TaskDeathTest, AwaitedAfterAMoveStopsTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  Task<int> task = give(1);
  const Task<int> owner = std::move(task);
  EXPECT_EXIT(wait(std::move(task)), ::testing::KilledBySignal(SIGABRT), "moved from");
  EXPECT_EXIT(withBufferedStandardError([&] { wait(std::move(task)); }),
              ::testing::KilledBySignal(SIGABRT), "moved from")
      << "a host may have its messages buffered";
}

}  // namespace
}  // namespace vemra::testing
