#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/task/Result.hpp"

#include <coroutine>
#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

// What a Task is made of. Nothing here is for callers.

namespace vemra::task {

template <class T>
class Task;

namespace coroutine {

// Whether the compiler always turns "resume that one next" into a jump. GCC does so only from -O2
// on and not under the sanitizers, and tells nobody; elsewhere every await that completes at once
// would leave a frame on the stack, and a loop of some ten thousand of them overflows it.
#if defined(__clang__)
inline constexpr bool transferIsAJump = true;
#else
inline constexpr bool transferIsAJump = false;
#endif

class PromiseBase;

/// A task that is being started by a call of its coroutine, while the call lasts.
///
/// Calls are known per thread. A task that ends within its call leaves it to the caller to go on
/// and so frees the stack; one that ends later, or on another thread, continues its waiter itself.
class VEMRA_EXPORT Call {
 public:
  explicit Call(const PromiseBase& task) noexcept;
  ~Call();
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  bool hasEnded() const noexcept { return hasEnded_; }

  /// Notes that a task has ended; false when it is not being called on this thread.
  static bool noteEnd(const PromiseBase& task) noexcept;

 private:
  const PromiseBase* task_;
  Call* outer_;
  bool hasEnded_ = false;
};

/// What every task's promise has: whom to continue when the task ends.
class PromiseBase {
 public:
  struct FinalAwaiter {
    bool await_ready() const noexcept { return false; }

    template <class Promise>
    std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> ended) const noexcept {
      const PromiseBase& promise = ended.promise();
      if constexpr (!transferIsAJump) {
        if (Call::noteEnd(promise)) return std::noop_coroutine();
      }
      return promise.waiter_;
    }

    void await_resume() const noexcept {}
  };

  std::suspend_always initial_suspend() const noexcept { return {}; }
  FinalAwaiter final_suspend() const noexcept { return {}; }

  void setWaiter(std::coroutine_handle<> waiter) noexcept { waiter_ = waiter; }

 private:
  std::coroutine_handle<> waiter_;
};

template <class T>
class Promise final : public PromiseBase {
 public:
  Task<T> get_return_object() noexcept;

  template <class Value>
  requires std::is_convertible_v<Value&&, T>
  void return_value(Value&& value) {
    result_.emplace(Result<T>::returned(std::forward<Value>(value)));
  }

  void unhandled_exception() noexcept {
    result_.emplace(Result<T>::threw(std::current_exception()));
  }

  Result<T> takeResult() { return std::move(*result_); }

 private:
  std::optional<Result<T>> result_;
};

template <>
class Promise<void> final : public PromiseBase {
 public:
  Task<void> get_return_object() noexcept;
  void return_void() { result_.emplace(Result<void>::returned({})); }

  void unhandled_exception() noexcept {
    result_.emplace(Result<void>::threw(std::current_exception()));
  }

  Result<void> takeResult() { return std::move(*result_); }

 private:
  std::optional<Result<void>> result_;
};

/// Starts a task by jumping into it; it jumps back when it ends.
template <class T>
struct JumpingStart {
  std::coroutine_handle<Promise<T>> task;

  bool await_ready() const noexcept { return false; }

  std::coroutine_handle<> await_suspend(std::coroutine_handle<> waiter) const noexcept {
    task.promise().setWaiter(waiter);
    return task;
  }
};

/// Starts a task by calling it, and does not suspend when it has ended as the call returns.
template <class T>
struct CallingStart {
  std::coroutine_handle<Promise<T>> task;

  bool await_ready() const noexcept { return false; }

  bool await_suspend(std::coroutine_handle<> waiter) const noexcept {
    task.promise().setWaiter(waiter);
    // Another thread may end the task, continue the waiter and free both before the call returns.
    // After it, only the stack is safe to read.
    const Call call(task.promise());
    task.resume();
    return !call.hasEnded();
  }
};

template <class T>
using Start = std::conditional_t<transferIsAJump, JumpingStart<T>, CallingStart<T>>;

/// Stops the process: there is nothing to await in a task.
[[noreturn]] VEMRA_EXPORT void stopForTaskWithoutWork() noexcept;

}  // namespace coroutine
}  // namespace vemra::task
