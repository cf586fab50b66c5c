#pragma once

#include <coroutine>
#include <functional>
#include <thread>
#include <utility>
#include <vector>

namespace vemra::testing {

/// Something to wait for that the test opens by hand, once, on whatever thread it likes.
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

/// Waiting for this goes on, at once, on a thread of its own.
class Elsewhere {
 public:
  explicit Elsewhere(std::vector<std::thread>& threads) : threads_(threads) {}

  bool await_ready() const noexcept { return false; }
  void await_suspend(std::coroutine_handle<> waiter) {
    threads_.emplace_back([waiter] { waiter.resume(); });
  }
  void await_resume() const noexcept {}

 private:
  std::vector<std::thread>& threads_;
};

}  // namespace vemra::testing
