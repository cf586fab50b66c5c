#include "tests/VemraPlatform/date/threads/Locks.hpp"

#include <atomic>
#include <dlfcn.h>
#include <pthread.h>

namespace vemra::testing {
namespace {

thread_local long taken = 0;

}  // namespace

long locksTaken() noexcept {
  return taken;
}

}  // namespace vemra::testing

#ifndef VEMRA_LOCKS_ARE_NOT_COUNTED
// A program's own function replaces the C library's, also for shared libraries. It has no static
// variable that is initialised on first use: libc++abi locks a mutex for that, which would call
// this function again.
extern "C" [[gnu::visibility("default")]] int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
  using Function = int (*)(pthread_mutex_t*);
  static std::atomic<Function> found = nullptr;
  ++vemra::testing::taken;
  Function lock = found.load(std::memory_order_acquire);
  if (lock == nullptr) {
    lock = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    found.store(lock, std::memory_order_release);
  }
  return lock(mutex);
}
#endif
