#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/task/Result.hpp"

#include <coroutine>
#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

// The parts of a Task. Callers use Task.hpp instead.

namespace vemra::task {

template <class T>
class Task;

namespace coroutine {

// Whether the compiler always turns the resumption of the next coroutine into a jump. GCC does so
// only from -O2 on and not under the sanitizers, and has no macro that says so. Without the jump,
// every await that completes at once leaves a frame on the stack, and a loop of some ten thousand
// awaits overflows the stack.
#if defined(__clang__)
inline constexpr bool transferIsAJump = true;
#else
inline constexpr bool transferIsAJump = false;
#endif

class PromiseBase;

/// A task that is being started by a call of its coroutine, while the call lasts.
///
/// Each thread knows its own calls. When a task ends within its call, the caller continues, which
/// frees the stack; a task that ends later, or on another thread, resumes its waiter itself.
class VEMRA_EXPORT Call {
 public:
  explicit Call(const PromiseBase& task) noexcept;
  ~Call();
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  bool hasEnded() const noexcept { return hasEnded_; }

  /// Notes that a task has ended; false when no call on this thread is starting it.
  static bool noteEnd(const PromiseBase& task) noexcept;

 private:
  const PromiseBase* task_;
  Call* outer_;
  bool hasEnded_ = false;
};

/// The common part of all tasks' promises: the coroutine to resume when the task ends.
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
  /// Whether the task has been awaited, and so has begun.
  bool hasBegun() const noexcept { return static_cast<bool>(waiter_); }

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

/// Starts a task by calling it, and does not suspend when the task has ended within the call.
template <class T>
struct CallingStart {
  std::coroutine_handle<Promise<T>> task;

  bool await_ready() const noexcept { return false; }

  bool await_suspend(std::coroutine_handle<> waiter) const noexcept {
    task.promise().setWaiter(waiter);
    // Another thread may end the task, resume the waiter and free both before the call returns.
    // After the call, only local variables are safe to read.
    const Call call(task.promise());
    task.resume();
    return !call.hasEnded();
  }
};

template <class T>
using Start = std::conditional_t<transferIsAJump, JumpingStart<T>, CallingStart<T>>;

/// Stops the process: the task has no coroutine to await.
[[noreturn]] VEMRA_EXPORT void stopForTaskWithoutWork() noexcept;

/// Stops the process: a task is being destroyed before its coroutine has ended, which something
/// else is going to resume.
[[noreturn]] VEMRA_EXPORT void stopForTaskUnderWay() noexcept;

/// Stops the process: the callback of a started task has thrown the current exception, which has no
/// caller.
[[noreturn]] VEMRA_EXPORT void stopForThrowingCallback() noexcept;

}  // namespace coroutine
}  // namespace vemra::task
