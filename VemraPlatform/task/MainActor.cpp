#include "VemraPlatform/task/MainActor.hpp"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <pthread.h>
#include <unistd.h>

namespace vemra::task {
namespace {

enum class Thread { unknown, first, other, adopted };

// Whether the calling thread is the main thread. Cached, because a system call takes as long as
// describing a button. A thread's id cannot replace it: the system reuses the ids of ended threads.
thread_local Thread current = Thread::unknown;

std::atomic<bool> hasAdopted = false;

/// The thread that called fork is the only thread of the child, and so its first.
void becomeFirstInChild() noexcept {
  current = Thread::first;
  hasAdopted = false;
}

Thread currentThread() noexcept {
  if (current == Thread::unknown) {
    [[maybe_unused]] static const int once = pthread_atfork(nullptr, nullptr, becomeFirstInChild);
    current = gettid() == getpid() ? Thread::first : Thread::other;
  }
  return current;
}

}  // namespace

void MainActor::adoptCurrentThread() noexcept {
  if (currentThread() == Thread::adopted) return;
  if (hasAdopted.exchange(true)) {
    std::fputs(
        "MainActor::adoptCurrentThread was called on a second thread; call it once, on the thread "
        "that runs the user interface.\n",
        stderr);
    std::fflush(stderr);
    std::abort();
  }
  current = Thread::adopted;
}

bool MainActor::isCurrent() noexcept {
  const Thread thread = currentThread();
  return thread == Thread::adopted || (thread == Thread::first && !hasAdopted);
}

void MainActor::assertIsolated(std::string_view member) noexcept {
  if (isCurrent()) return;
  std::fprintf(stderr,
               "%.*s was called off the main thread; it belongs to the main actor. Call it on the "
               "first thread of the process, or name the thread of the user interface with "
               "MainActor::adoptCurrentThread.\n",
               static_cast<int>(member.size()), member.data());
  std::fflush(stderr);
  std::abort();
}

}  // namespace vemra::task
