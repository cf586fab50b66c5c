#include "VemraPlatform/task/MainActor.hpp"
#include "VemraPlatform/task/Start.hpp"
#include "tests/VemraPlatform/task/Gate.hpp"

#include <memory>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

namespace vemra::testing {
namespace {

using task::MainActor;
using task::Result;
using task::start;
using task::Task;
using task::wait;

Task<std::thread::id> whereItGoesOn(Threads* threads) {
  Elsewhere elsewhere(*threads);
  co_await elsewhere;
  co_return std::this_thread::get_id();
}

Task<bool> staysWhereItsAwaitResumed(Threads* threads) {
  auto inner = whereItGoesOn(threads);
  const std::thread::id innerThread = co_await std::move(inner);
  co_return innerThread == std::this_thread::get_id() && !MainActor::isCurrent();
}

TEST(Start, CallsTheCallbackOnceWithTheResult) {
  int calls = 0;
  start(give(4), [&](Result<int> result) {
    ++calls;
    EXPECT_TRUE(result.hasValue());
    EXPECT_EQ(result.exception(), nullptr);
    EXPECT_EQ(std::move(result).take(), 4);
  });
  EXPECT_EQ(calls, 1);
}

TEST(Start, CallsTheCallbackWithTheExceptionAndThrowsNothing) {
  struct Source {
    static Task<> fail(const std::exception** place) {
      co_await std::suspend_never();
      try {
        throw std::runtime_error("failed");
      } catch (const std::exception& thrown) {
        *place = &thrown;
        throw;
      }
    }
  };
  const std::exception* thrown = nullptr;
  const std::exception* caught = nullptr;
  start(Source::fail(&thrown), [&](Result<void> result) {
    EXPECT_FALSE(result.hasValue());
    EXPECT_NE(result.exception(), nullptr);
    try {
      std::move(result).take();
    } catch (const std::exception& failure) {
      caught = &failure;
    }
  });
  EXPECT_NE(caught, nullptr);
  EXPECT_EQ(caught, thrown);
}

TEST(Start, DestroysTheTaskBeforeItCallsTheCallback) {
  struct Source {
    static Task<> hold(std::shared_ptr<int> held) {
      EXPECT_NE(held, nullptr);
      co_return;
    }
  };
  const auto held = std::make_shared<int>(0);
  long uses = 0;
  start(Source::hold(held), [&](Result<void>) { uses = held.use_count(); });
  EXPECT_EQ(uses, 1);
}

TEST(Start, TakesAMoveOnlyCallback) {
  auto owned = std::make_unique<int>(0);
  int* seen = owned.get();
  int value = 0;
  start(give(9), [owned = std::move(owned), &value, &seen](Result<int> result) {
    EXPECT_EQ(owned.get(), seen);
    value = std::move(result).take();
  });
  EXPECT_EQ(value, 9);
}

TEST(Start, CallsTheCallbackOnTheThreadOnWhichTheTaskEnds) {
  Threads threads;
  bool calledOnMain = true;
  start(whereItGoesOn(&threads), [&](Result<std::thread::id> result) {
    EXPECT_EQ(std::move(result).take(), std::this_thread::get_id());
    calledOnMain = MainActor::isCurrent();
  });
  threads.join();
  EXPECT_FALSE(calledOnMain);
}

TEST(Wait, BlocksUntilATaskElsewhereHasEnded) {
  Threads threads;
  EXPECT_TRUE(wait(staysWhereItsAwaitResumed(&threads)));
  threads.join();
}

TEST(Wait, RethrowsAnExceptionOfAnotherThread) {
  struct Source {
    static Task<int> fail(Threads* threads) {
      Elsewhere elsewhere(*threads);
      co_await elsewhere;
      throw std::runtime_error("failed elsewhere");
    }
  };
  Threads threads;
  EXPECT_THROW(wait(Source::fail(&threads)), std::runtime_error);
  threads.join();
}

Task<int> hop(Threads* threads, int times) {
  int value = 0;
  for (int hopped = 0; hopped < times; ++hopped) {
    auto next = whereItGoesOn(threads);
    co_await std::move(next);
    auto more = give(1);
    value += co_await std::move(more);
  }
  co_return value;
}

/// A task may end on one thread before or after another thread awaits it.
TEST(Wait, ContinuesWhicheverThreadIsFirst) {
  for (int round = 0; round < 50; ++round) {
    Threads threads;
    EXPECT_EQ(wait(hop(&threads, 20)), 20);
    threads.join();
  }
}

TEST(Wait, IsPossibleOnManyThreadsAtOnce) {
  Threads waiting;
  std::vector<int> values(4);
  for (int& value : values) {
    waiting.add([&value] {
      Threads threads;
      value = wait(hop(&threads, 50));
      threads.join();
    });
  }
  waiting.join();
  EXPECT_EQ(values, std::vector<int>(4, 50));
}

TEST(StartDeathTest, StopsWhenTheCallbackThrows) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(start(give(1), [](Result<int>) { throw std::runtime_error("no"); }),
              ::testing::KilledBySignal(SIGABRT),
              "The callback of task::start threw: no. Catch it in the callback");
  EXPECT_EXIT(start(give(1), [](Result<int>) { throw 1; }), ::testing::KilledBySignal(SIGABRT),
              "The callback of task::start threw: an exception. Catch it");
}

TEST(StartDeathTest, StopsForAnExceptionOfTheTaskThatNothingCatches) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  struct Engine {
    static Task<int> fails() {
      throw std::runtime_error("the engine is away");
      co_return 1;
    }
  };
  EXPECT_EXIT(start(Engine::fails(), [](Result<int> result) { std::move(result).take(); }),
              ::testing::KilledBySignal(SIGABRT),
              "threw: the engine is away. .*Result::take rethrows the exception of the task");
}

}  // namespace
}  // namespace vemra::testing
