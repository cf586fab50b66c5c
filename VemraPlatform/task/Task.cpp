#include "VemraPlatform/task/Task.hpp"

#include <cstdio>
#include <cstdlib>

namespace vemra::task::coroutine {

void stopForTaskWithoutWork() noexcept {
  std::fputs("A task was awaited that was moved from or has been awaited before.\n", stderr);
  std::fflush(stderr);
  std::abort();
}

}  // namespace vemra::task::coroutine
