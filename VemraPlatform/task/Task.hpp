#pragma once

#include "VemraPlatform/task/Result.hpp"

#include <atomic>
#include <coroutine>
#include <optional>
#include <type_traits>
#include <utility>

namespace vemra::task {

template <class T>
class Task;

namespace coroutine {

// Whether the compiler turns "resume that one next" into a jump. GCC does not without optimisation
// and not under the sanitizers: there, every await that completes at once would leave a frame on
// the stack, and a loop of some ten thousand of them overflows it.
#if defined(__clang__)
inline constexpr bool transferIsAJump = true;
#elif defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
inline constexpr bool transferIsAJump = true;
#else
inline constexpr bool transferIsAJump = false;
#endif

/// What every task's promise has: whom to continue, and who comes first, the end or the waiter.
class PromiseBase {
 public:
  struct FinalAwaiter {
    bool await_ready() const noexcept { return false; }

    template <class Promise>
    std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> ended) const noexcept {
      PromiseBase& promise = ended.promise();
      // Nothing of the frame may be touched once the waiter knows: it may be gone by then.
      const std::coroutine_handle<> waiter = promise.waiter_;
      return promise.isSecond() ? waiter : std::noop_coroutine();
    }

    void await_resume() const noexcept {}
  };

  std::suspend_always initial_suspend() const noexcept { return {}; }
  FinalAwaiter final_suspend() const noexcept { return {}; }

  void setWaiter(std::coroutine_handle<> waiter) noexcept { waiter_ = waiter; }

  /// Called once by the task when it ends and once by its waiter when it is ready to be continued,
  /// possibly on two threads: whoever is second sees to it that the waiter continues.
  bool isSecond() noexcept { return met_.exchange(true, std::memory_order_acq_rel); }

 private:
  std::coroutine_handle<> waiter_;
  std::atomic<bool> met_ = false;
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
    task.promise().isSecond();
    return task;
  }
};

/// Starts a task by calling it, and does not suspend when it has ended by the time the call
/// returns.
template <class T>
struct CallingStart {
  std::coroutine_handle<Promise<T>> task;

  bool await_ready() const noexcept { return false; }

  bool await_suspend(std::coroutine_handle<> waiter) const noexcept {
    // This awaiter lives in the waiter's frame, which may be gone after the second of the two.
    const std::coroutine_handle<Promise<T>> started = task;
    started.promise().setWaiter(waiter);
    started.resume();
    return !started.promise().isSecond();
  }
};

template <class T>
using Start = std::conditional_t<transferIsAJump, JumpingStart<T>, CallingStart<T>>;

[[noreturn]] void stopForTaskWithoutWork() noexcept;

}  // namespace coroutine

/// Work that has not begun: a coroutine that starts when it is awaited and gives a `T` or throws.
///
/// ```
/// Task<Snapshot> load(std::shared_ptr<Engine> engine, std::string id) {  // arguments by value
///   auto query = engine->query(std::move(id));                           // name it first …
///   co_return Snapshot(co_await std::move(query));                       // … then await it
/// }
/// ```
///
/// - Lazy: until it is awaited nothing runs; destroying a task that never started is fine.
/// - Move-only, and awaited at most once: awaiting takes the value out.
/// - No executor and no thread: it runs on the awaiting thread, and goes on wherever what it waits
/// for
///   resumes it. It never hops to the main thread by itself.
/// - An exception passes through every await as the very same object.
/// - Awaits that complete at once do not pile up on the stack, in any build.
///
/// A coroutine's arguments are kept in it and are to be values: a reference would outlive what it
/// refers to. Name the awaited task before awaiting it, as above; GCC 12 destroys an owning
/// temporary inside a `co_await` expression, such as a lambda with captures, twice. A task that has
/// started must end before it is destroyed.
template <class T = void>
class [[nodiscard]] Task {
  static_assert(!std::is_reference_v<T>, "A task gives a value.");

 public:
  using promise_type = coroutine::Promise<T>;

  Task(Task&& other) noexcept : coroutine_(std::exchange(other.coroutine_, nullptr)) {}
  Task& operator=(Task&& other) noexcept {
    Task(std::move(other)).swap(*this);
    return *this;
  }
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;
  ~Task() {
    if (coroutine_) coroutine_.destroy();
  }

  /// Starts the task and waits for its value; an exception of the task is thrown here.
  ///
  /// A programmer error that stops the process: awaiting a task that was moved from.
  auto operator co_await() && noexcept {
    struct Awaiter : coroutine::Start<T> {
      T await_resume() const { return this->task.promise().takeResult().take(); }
    };
    return Awaiter{{started()}};
  }

  /// An awaitable that starts the task and gives how it ended, without throwing.
  auto result() && noexcept {
    struct Awaiter : coroutine::Start<T> {
      Result<T> await_resume() const { return this->task.promise().takeResult(); }
    };
    return Awaiter{{started()}};
  }

 private:
  friend promise_type;

  explicit Task(std::coroutine_handle<promise_type> coroutine) noexcept : coroutine_(coroutine) {}

  void swap(Task& other) noexcept { std::swap(coroutine_, other.coroutine_); }

  std::coroutine_handle<promise_type> started() const noexcept {
    if (!coroutine_ || coroutine_.done()) coroutine::stopForTaskWithoutWork();
    return coroutine_;
  }

  std::coroutine_handle<promise_type> coroutine_;
};

template <class T>
Task<T> coroutine::Promise<T>::get_return_object() noexcept {
  return Task<T>(std::coroutine_handle<Promise>::from_promise(*this));
}

inline Task<void> coroutine::Promise<void>::get_return_object() noexcept {
  return Task<void>(std::coroutine_handle<Promise>::from_promise(*this));
}

}  // namespace vemra::task
