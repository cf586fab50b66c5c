#pragma once

#include "VemraPlatform/task/Task.hpp"

#include <coroutine>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace vemra::testing {

inline task::Task<int> give(int value) {
  co_return value;
}

/// Something to await that the test opens once, on any thread.
class Gate {
 public:
  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<> waiter) noexcept { waiter_ = waiter; }
  void await_resume() const noexcept {}

  bool hasWaiter() const noexcept { return waiter_ != nullptr; }
  void open() { std::exchange(waiter_, nullptr).resume(); }

 private:
  std::coroutine_handle<> waiter_;
};

/// Threads on which tasks continue. Started from any thread, joined by the test.
class Threads {
 public:
  template <class Work>
  void add(Work work) {
    // Under the lock: the work itself may add the next thread, or let the test join this one.
    const std::lock_guard lock(mutex_);
    threads_.emplace_back(std::move(work));
  }

  void join() {
    std::vector<std::thread> threads;
    {
      const std::lock_guard lock(mutex_);
      threads.swap(threads_);
    }
    for (std::thread& thread : threads) thread.join();
  }

 private:
  std::mutex mutex_;
  std::vector<std::thread> threads_;
};

/// A coroutine that awaits this continues at once, on a thread of its own.
class Elsewhere {
 public:
  explicit Elsewhere(Threads& threads) : threads_(threads) {}

  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<> waiter) const {
    threads_.add([waiter] { waiter.resume(); });
  }
  void await_resume() const noexcept {}

 private:
  Threads& threads_;
};

}  // namespace vemra::testing
