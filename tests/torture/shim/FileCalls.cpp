// Calls on an open file. Their names and types are the C library's.
#include "tests/torture/shim/Shim.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <ctime>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

using vemra::torture::counted;
using vemra::torture::following;
using vemra::torture::Shim;
using vemra::torture::Verdict;

namespace {

off_t sizeOf(int descriptor) {
  static const auto fstat = following<int(int, struct stat*)>("fstat");
  struct stat status {};
  return fstat(descriptor, &status) == 0 ? status.st_size : 0;
}

/// The number of bytes that a disk with a quota accepts.
std::size_t allowed(int descriptor, std::size_t length, off_t offset) {
  Shim& shim = Shim::instance();
  const off_t end = offset + static_cast<off_t>(length);
  const off_t size = shim.hasQuota() ? sizeOf(descriptor) : end;
  if (end <= size) return length;
  const auto growth = static_cast<std::size_t>(end - std::max(size, offset));
  return length - growth + shim.room(growth);
}

template <class Write>
ssize_t writeCounted(const char* name, int descriptor, const void* bytes, std::size_t length,
                     off_t offset, Write write) {
  Shim& shim = Shim::instance();
  const Verdict verdict = shim.next(name, descriptor, Shim::Kind::writes);
  if (verdict == Verdict::fail) return -1;
  std::size_t share = verdict == Verdict::half && length > 1 ? length / 2 : length;
  share = allowed(descriptor, share, offset);
  if (share == 0 && length > 0) {
    errno = ENOSPC;
    return -1;
  }
  const ssize_t written = write(share);
  const int error = errno;
  if (written > 0 && shim.isLogging()) {
    shim.log("write", descriptor, offset, bytes, static_cast<std::size_t>(written));
  }
  if (verdict == Verdict::half) shim.endAfterHalf();
  errno = error;
  return written;
}

template <class Sync>
int syncCounted(const char* name, int descriptor, Sync sync) {
  const int result = counted(name, descriptor, sync);
  if (result == 0 && Shim::instance().isLogging() && Shim::instance().concerns(descriptor)) {
    Shim::instance().log("sync", descriptor);
  }
  return result;
}

template <class Truncate>
int truncateCounted(int descriptor, off_t length, Truncate truncate) {
  Shim& shim = Shim::instance();
  if (!shim.concerns(descriptor)) return truncate();
  const off_t before = shim.hasQuota() ? sizeOf(descriptor) : 0;
  const int result = counted("ftruncate", descriptor, truncate);
  if (result == 0 && length < before) shim.giveBack(static_cast<std::size_t>(before - length));
  if (result == 0 && shim.isLogging()) shim.log("truncate", descriptor, length);
  return result;
}

}  // namespace

extern "C" {

ssize_t read(int descriptor, void* bytes, size_t length) {
  static const auto next = following<ssize_t(int, void*, size_t)>("read");
  return counted("read", descriptor, [&] { return next(descriptor, bytes, length); });
}

ssize_t pread64(int descriptor, void* bytes, size_t length, off64_t offset) {
  static const auto next = following<ssize_t(int, void*, size_t, off64_t)>("pread64");
  return counted("pread", descriptor, [&] { return next(descriptor, bytes, length, offset); });
}

ssize_t write(int descriptor, const void* bytes, size_t length) {
  static const auto next = following<ssize_t(int, const void*, size_t)>("write");
  Shim& shim = Shim::instance();
  if (!shim.concerns(descriptor)) {
    const ssize_t written = next(descriptor, bytes, length);
    if (written > 0 && descriptor == STDOUT_FILENO && shim.isLogging()) {
      shim.log("say", "-", 0, 0, bytes, static_cast<std::size_t>(written));
    }
    return written;
  }
  const off_t offset = ::lseek(descriptor, 0, SEEK_CUR);
  return writeCounted("write", descriptor, bytes, length, offset,
                      [&](std::size_t share) { return next(descriptor, bytes, share); });
}

ssize_t pwrite64(int descriptor, const void* bytes, size_t length, off64_t offset) {
  static const auto next = following<ssize_t(int, const void*, size_t, off64_t)>("pwrite64");
  if (!Shim::instance().concerns(descriptor)) return next(descriptor, bytes, length, offset);
  return writeCounted("pwrite", descriptor, bytes, length, offset,
                      [&](std::size_t share) { return next(descriptor, bytes, share, offset); });
}

int fsync(int descriptor) {
  static const auto next = following<int(int)>("fsync");
  return syncCounted("fsync", descriptor, [&] { return next(descriptor); });
}

int fdatasync(int descriptor) {
  static const auto next = following<int(int)>("fdatasync");
  return syncCounted("fdatasync", descriptor, [&] { return next(descriptor); });
}

int ftruncate(int descriptor, off_t length) noexcept {
  static const auto next = following<int(int, off_t)>("ftruncate");
  return truncateCounted(descriptor, length, [&] { return next(descriptor, length); });
}

int ftruncate64(int descriptor, off64_t length) noexcept {
  static const auto next = following<int(int, off64_t)>("ftruncate64");
  return truncateCounted(descriptor, length, [&] { return next(descriptor, length); });
}

int fcntl(int descriptor, int command, ...) {
  static const auto next = following<int(int, int, ...)>("fcntl");
  std::va_list arguments;
  va_start(arguments, command);
  void* const argument = va_arg(arguments, void*);  // a number in its place fits into it
  va_end(arguments);
  return counted("fcntl", descriptor, [&] { return next(descriptor, command, argument); });
}

int fcntl64(int descriptor, int command, ...) {
  static const auto next = following<int(int, int, ...)>("fcntl64");
  std::va_list arguments;
  va_start(arguments, command);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  return counted("fcntl", descriptor, [&] { return next(descriptor, command, argument); });
}

int fstat(int descriptor, struct stat* status) noexcept {
  static const auto next = following<int(int, struct stat*)>("fstat");
  return counted("fstat", descriptor, [&] { return next(descriptor, status); });
}

int fstat64(int descriptor, struct stat64* status) noexcept {
  static const auto next = following<int(int, struct stat64*)>("fstat64");
  return counted("fstat", descriptor, [&] { return next(descriptor, status); });
}

int fchmod(int descriptor, mode_t mode) noexcept {
  static const auto next = following<int(int, mode_t)>("fchmod");
  return counted("fchmod", descriptor, [&] { return next(descriptor, mode); });
}

int fchown(int descriptor, uid_t user, gid_t group) noexcept {
  static const auto next = following<int(int, uid_t, gid_t)>("fchown");
  return counted("fchown", descriptor, [&] { return next(descriptor, user, group); });
}

// The same by two names.
void* mmap(void* place, size_t length, int protection, int flags, int descriptor,
           off_t offset) noexcept {
  static const auto next = following<void*(void*, size_t, int, int, int, off_t)>("mmap");
  const auto call = [&] { return next(place, length, protection, flags, descriptor, offset); };
  return descriptor < 0 ? call() : counted("mmap", descriptor, call);
}

void* mmap64(void* place, size_t length, int protection, int flags, int descriptor,
             off64_t offset) noexcept {
  static const auto next = following<void*(void*, size_t, int, int, int, off64_t)>("mmap64");
  const auto call = [&] { return next(place, length, protection, flags, descriptor, offset); };
  return descriptor < 0 ? call() : counted("mmap", descriptor, call);
}

int close(int descriptor) {
  static const auto next = following<int(int)>("close");
  Shim& shim = Shim::instance();
  if (!shim.concerns(descriptor)) return next(descriptor);
  // Closed in any case, as Linux does it; but the failure is reported.
  const Verdict verdict = shim.next("close", descriptor);
  const int error = errno;
  shim.closed(descriptor);
  const int result = next(descriptor);
  if (verdict != Verdict::fail) return result;
  errno = error;
  return -1;
}

// Later versions of SQLite call this one instead of `usleep`.
int nanosleep(const timespec* time, timespec* rest) {
  static const auto next = following<int(const timespec*, timespec*)>("nanosleep");
  return Shim::instance().isInAHurry() ? 0 : next(time, rest);
}

int usleep(useconds_t time) {
  static const auto next = following<int(useconds_t)>("usleep");
  return Shim::instance().isInAHurry() ? 0 : next(time);
}

}  // extern "C"
