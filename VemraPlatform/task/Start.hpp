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

/// A coroutine without a waiter; it frees itself when it ends.
///
/// It waits for its first `resume`, which comes after the call that makes it has returned. For g++ 16
/// counts in the frame, not atomically, whether that call still needs the frame; a body that began
/// inside of it could end on another thread at the same time.
struct Detached {
  struct promise_type {
    Detached get_return_object() noexcept {
      return {std::coroutine_handle<promise_type>::from_promise(*this)};
    }
    std::suspend_always initial_suspend() const noexcept { return {}; }
    std::suspend_never final_suspend() const noexcept { return {}; }
    void return_void() const noexcept {}
    void unhandled_exception() const noexcept { stopForThrowingCallback(); }
  };

  std::coroutine_handle<promise_type> frame;
};

template <class T, class Callback>
Detached run(Task<T> task, Callback callback) {
  std::optional<Result<T>> result;
  {
    // Destroys the task and its captured values before the callback is called.
    Task<T> running = std::move(task);
    auto ending = std::move(running).result();
    result.emplace(co_await ending);
  }
  std::move(callback)(std::move(*result));
}

}  // namespace coroutine

/// Starts a task and calls the callback with its result.
///
/// Returns when the task ends or waits for the first time. The task's frame is destroyed before the
/// callback is called.
///
/// - Parameter callback: called exactly once with a `Result<T>`, on the thread on which the task
///   ends; that may be the caller's thread, before this function returns. It must not throw: an
///   exception stops the process with a message.
template <class T, std::invocable<Result<T>> Callback>
void start(Task<T> task, Callback callback) {
  coroutine::run(std::move(task), std::move(callback)).frame.resume();
}

/// Starts a task and blocks the calling thread until it has ended.
///
/// For tests and command-line programs. Do not call it on the main thread of a program with a
/// window: the window freezes, and for ever if the task needs the main thread to continue.
/// - Returns: the task's value; rethrows the task's exception, the same object.
template <class T>
T wait(Task<T> task) {
  std::mutex mutex;
  std::condition_variable ended;
  std::optional<Result<T>> result;
  start(std::move(task), [&](Result<T> ending) {
    // Notifies under the lock: the waiting thread owns the lock, the condition and the result, and
    // destroys them as soon as it wakes up.
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
