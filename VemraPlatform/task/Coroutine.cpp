#include "VemraPlatform/task/Coroutine.hpp"

#include <cstdio>
#include <cstdlib>

namespace vemra::task::coroutine {
namespace {

// Read and written in this file only: inlined into a coroutine, which may go on on another thread,
// a compiler might keep the address of the thread it began on.
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
