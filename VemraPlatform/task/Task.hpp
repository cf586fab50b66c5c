#pragma once

#include "VemraPlatform/task/Coroutine.hpp"

#include <coroutine>
#include <type_traits>
#include <utility>

namespace vemra::task {

/// Work that has not begun: a coroutine that starts when it is awaited, and returns a `T` or
/// throws.
///
/// ```
/// Task<Snapshot> load(std::shared_ptr<Engine> engine, std::string id) {  // arguments by value
///   auto query = engine->query(std::move(id));                           // name it first …
///   co_return Snapshot(co_await std::move(query));                       // … then await it
/// }
/// ```
///
/// - Lazy: it runs only when it is awaited; a task that never started may be destroyed.
/// - Move-only, and awaited at most once: the await moves the value out.
/// - No executor and no thread: it runs on the awaiting thread, and continues on the thread that
///   resumes it. It never changes to the main thread by itself.
/// - An exception passes through every await as the same object.
/// - Awaits that complete at once do not accumulate on the stack, in any build. A chain of tasks
///   that wait for each other needs as much stack as a chain of calls.
///
/// Take a coroutine's arguments by value: a reference in the coroutine may outlive the object that
/// it refers to. Name the awaited task before awaiting it, as above: GCC 12 destroys an owning
/// temporary inside a `co_await` expression, such as a lambda with captures, twice.
///
/// A task that has started must end before it is destroyed: to destroy it earlier is a programmer's
/// error that stops the process with a message.
template <class T = void>
class [[nodiscard]] Task {
  static_assert(!std::is_reference_v<T>, "A task gives a value.");

 public:
  using promise_type = coroutine::Promise<T>;

  /// Takes over the coroutine; `other` is empty afterwards.
  Task(Task&& other) noexcept : coroutine_(std::exchange(other.coroutine_, nullptr)) {}
  Task& operator=(Task&& other) noexcept {
    Task(std::move(other)).swap(*this);
    return *this;
  }
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;
  ~Task() {
    if (!coroutine_) return;
    if (coroutine_.promise().hasBegun() && !coroutine_.done()) coroutine::stopForTaskUnderWay();
    coroutine_.destroy();
  }

  /// Starts the task and waits for its value; rethrows the task's exception.
  ///
  /// To await a task twice, or after it was moved from, is a programmer's error that stops the
  /// process.
  auto operator co_await() && noexcept {
    struct Awaiter : coroutine::Start<T> {
      T await_resume() const { return this->task.promise().takeResult().take(); }
    };
    return Awaiter{{started()}};
  }

  /// An awaitable that starts the task and gives its `Result`, without throwing.
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
