#include "VemraPlatform/task/Coroutine.hpp"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace vemra::task::coroutine {
namespace {

// Only functions in this file use it. If they were inlined into a coroutine, the compiler might
// keep the variable's address of the first thread, although the coroutine continues on another
// thread.
thread_local Call* innermost = nullptr;

[[noreturn]] void stop(const std::string& message) noexcept {
  std::fprintf(stderr, "%s\n", message.c_str());
  std::fflush(stderr);
  std::abort();
}

}  // namespace

Call::Call(const PromiseBase& task) noexcept : task_(&task), outer_(innermost) {
  innermost = this;
}

Call::~Call() {
  innermost = outer_;
}

bool Call::noteEnd(const PromiseBase& task) noexcept {
  for (Call* call = innermost; call != nullptr; call = call->outer_) {
    if (call->task_ != &task) continue;
    call->hasEnded_ = true;
    return true;
  }
  return false;
}

void stopForTaskWithoutWork() noexcept {
  stop(
      "A task was awaited that was moved from or was awaited before. Await each task once; to do "
      "the work again, call its function again.");
}

void stopForTaskUnderWay() noexcept {
  stop(
      "A task was destroyed while it was under way. Keep it until it has ended: task::start and "
      "qt::startOnMainThread do so, and a coroutine that awaits it must not be destroyed either.");
}

void stopForThrowingCallback() noexcept {
  std::string what = "an exception";
  try {
    throw;
  } catch (const std::exception& error) {
    what = error.what();
  } catch (...) {  // of another type, without a text
  }
  stop("The callback of task::start threw: " + what +
       ". Catch it in the callback: Result::take rethrows the exception of the task.");
}

}  // namespace vemra::task::coroutine
