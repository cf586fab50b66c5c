#pragma once

#include "VemraPlatform/task/Task.hpp"

#include <concepts>
#include <condition_variable>
#include <coroutine>
#include <exception>
#include <mutex>
#include <optional>
#include <utility>

namespace vemra::task {
namespace coroutine {

/// A coroutine nobody waits for; it frees itself when it ends.
struct Detached {
  struct promise_type {
    Detached get_return_object() const noexcept { return {}; }
    std::suspend_never initial_suspend() const noexcept { return {}; }
    std::suspend_never final_suspend() const noexcept { return {}; }
    void return_void() const noexcept {}
    void unhandled_exception() const noexcept { std::terminate(); }
  };
};

template <class T, class Callback>
Detached run(Task<T> task, Callback callback) {
  std::optional<Result<T>> result;
  {
    // The task and what it holds go before the callback hears of the end.
    Task<T> running = std::move(task);
    auto ending = std::move(running).result();
    result.emplace(co_await ending);
  }
  std::move(callback)(std::move(*result));
}

}  // namespace coroutine

/// Starts a task and tells the callback how it ended.
///
/// Returns when the task ends or waits for the first time. The task's frame is gone by the time the
/// callback runs.
///
/// - Parameter callback: called exactly once with a `Result<T>`, on the thread the task ends on;
///   that may be the caller's, before this returns. It must not throw: an exception stops the
///   process.
template <class T, std::invocable<Result<T>> Callback>
void start(Task<T> task, Callback callback) {
  coroutine::run(std::move(task), std::move(callback));
}

/// Starts a task and blocks the calling thread until it has ended.
///
/// For tests and command-line programs. Never on the main thread of a program with a window: it
/// stands still, and for ever if the task needs that thread to go on.
/// - Returns: the task's value; throws the very same exception object that left the task.
template <class T>
T wait(Task<T> task) {
  std::mutex mutex;
  std::condition_variable ended;
  std::optional<Result<T>> result;
  start(std::move(task), [&](Result<T> ending) {
    // Told under the lock: the waiting thread owns all three and destroys them as soon as it knows.
    const std::lock_guard lock(mutex);
    result.emplace(std::move(ending));
    ended.notify_one();
  });
  std::unique_lock lock(mutex);
  ended.wait(lock, [&] { return result.has_value(); });
  lock.unlock();
  return std::move(*result).take();
}

}  // namespace vemra::task
