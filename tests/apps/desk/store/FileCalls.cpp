#include "tests/apps/desk/store/FileCalls.hpp"

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::atomic<int> errorOfSync, errorOfStat, countOfSyncs, countOfDataSyncs;

}  // namespace

extern "C" int fsync(int descriptor) {
  ++countOfSyncs;
  if (errorOfSync != 0) {
    errno = errorOfSync;
    return -1;
  }
  return static_cast<int>(::syscall(SYS_fsync, descriptor));
}

// Visible to SQLite's library.
extern "C" [[gnu::visibility("default")]] int fdatasync(int descriptor) {
  ++countOfDataSyncs;
  return static_cast<int>(::syscall(SYS_fdatasync, descriptor));
}

extern "C" int stat(const char* path, struct stat* status) noexcept {
  if (errorOfStat != 0) {
    errno = errorOfStat;
    return -1;
  }
  return ::fstatat(AT_FDCWD, path, status, 0);
}

namespace vemra::desk {

void FileCalls::fail(Call call, int error) {
  (call == Call::fsync ? errorOfSync : errorOfStat) = error;
}

void FileCalls::succeed() {
  errorOfSync = 0;
  errorOfStat = 0;
}

int FileCalls::syncs() {
  return countOfSyncs;
}

int FileCalls::dataSyncs() {
  return countOfDataSyncs;
}

}  // namespace vemra::desk
