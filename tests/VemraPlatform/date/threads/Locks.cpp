#include "tests/VemraPlatform/date/threads/Locks.hpp"

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
// A program's own function takes the place of the C library's, also for shared libraries.
extern "C" int pthread_mutex_lock(pthread_mutex_t* mutex) noexcept {
  using Function = int (*)(pthread_mutex_t*);
  static const auto lock = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
  ++vemra::testing::taken;
  return lock(mutex);
}
#endif
