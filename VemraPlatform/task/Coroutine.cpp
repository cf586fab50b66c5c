#include "VemraPlatform/task/Coroutine.hpp"

#include <cstdio>
#include <cstdlib>

namespace vemra::task::coroutine {
namespace {

// Only functions in this file use it. If they were inlined into a coroutine, the compiler might
// keep the variable's address of the first thread, although the coroutine continues on another
// thread.
thread_local Call* innermost = nullptr;

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
  std::fputs("A task was awaited that was moved from or has been awaited before.\n", stderr);
  std::fflush(stderr);
  std::abort();
}

}  // namespace vemra::task::coroutine
