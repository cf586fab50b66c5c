// Calls that name a file. Their names and types are the C library's.
#include "tests/torture/shim/Shim.hpp"

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using vemra::torture::counted;
using vemra::torture::following;
using vemra::torture::Shim;
using vemra::torture::Verdict;

namespace {

mode_t modeIn(int flags, std::va_list arguments) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

template <class Open>
int openCounted(const char* name, const char* path, int flags, Open open) {
  Shim& shim = Shim::instance();
  if (!shim.concerns(path)) return open();
  static const auto access = following<decltype(::access)>("access");
  const int before = errno;
  const bool isNew = (flags & O_CREAT) != 0 && access(path, F_OK) != 0;
  errno = before;
  if (shim.next(name, path) == Verdict::fail) return -1;
  const int descriptor = open();
  if (descriptor < 0) return descriptor;
  shim.opened(descriptor, path);
  if (shim.isLogging() && isNew) shim.log("create", descriptor);
  if (shim.isLogging() && (flags & O_TRUNC) != 0) shim.log("truncate", descriptor, 0);
  return descriptor;
}

/// Runs a call that changes names in a folder, and logs it when it was carried out.
template <class Call>
int changeNames(const char* name, const char* path, const char* other, Call call) {
  Shim& shim = Shim::instance();
  struct stat status {};
  static const auto lstat = following<decltype(::lstat)>("lstat");
  const bool goes = shim.hasQuota() && shim.concerns(path) && lstat(path, &status) == 0;
  const int result = counted(name, path, call);
  if (result != 0 || !shim.concerns(path)) return result;
  if (goes && std::strcmp(name, "unlink") == 0) {
    shim.giveBack(static_cast<std::size_t>(status.st_size));
  }
  if (shim.isLogging())
    shim.log(name, path, 0, 0, other, other != nullptr ? std::strlen(other) : 0);
  return result;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  static const auto next = following<int(const char*, int, ...)>("open");
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeIn(flags, arguments);
  va_end(arguments);
  return openCounted("open", path, flags, [&] { return next(path, flags, mode); });
}

int open64(const char* path, int flags, ...) {
  static const auto next = following<int(const char*, int, ...)>("open64");
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeIn(flags, arguments);
  va_end(arguments);
  return openCounted("open", path, flags, [&] { return next(path, flags, mode); });
}

int openat(int folder, const char* path, int flags, ...) {
  static const auto next = following<int(int, const char*, int, ...)>("openat");
  std::va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeIn(flags, arguments);
  va_end(arguments);
  return openCounted("openat", path, flags, [&] { return next(folder, path, flags, mode); });
}

int stat(const char* path, struct stat* status) noexcept {
  static const auto next = following<int(const char*, struct stat*)>("stat");
  return counted("stat", path, [&] { return next(path, status); });
}

int stat64(const char* path, struct stat64* status) noexcept {
  static const auto next = following<int(const char*, struct stat64*)>("stat64");
  return counted("stat", path, [&] { return next(path, status); });
}

int lstat(const char* path, struct stat* status) noexcept {
  static const auto next = following<int(const char*, struct stat*)>("lstat");
  return counted("lstat", path, [&] { return next(path, status); });
}

int lstat64(const char* path, struct stat64* status) noexcept {
  static const auto next = following<int(const char*, struct stat64*)>("lstat64");
  return counted("lstat", path, [&] { return next(path, status); });
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
  static const auto next = following<int(int, const char*, struct stat*, int)>("fstatat");
  return counted("fstatat", path, [&] { return next(folder, path, status, flags); });
}

int access(const char* path, int mode) noexcept {
  static const auto next = following<int(const char*, int)>("access");
  return counted("access", path, [&] { return next(path, mode); });
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
  static const auto next = following<int(int, const char*, int, int)>("faccessat");
  return counted("faccessat", path, [&] { return next(folder, path, mode, flags); });
}

ssize_t readlink(const char* path, char* target, size_t size) noexcept {
  static const auto next = following<ssize_t(const char*, char*, size_t)>("readlink");
  return counted("readlink", path, [&] { return next(path, target, size); });
}

char* realpath(const char* path, char* resolved) noexcept {
  static const auto next = following<char*(const char*, char*)>("realpath");
  Shim& shim = Shim::instance();
  if (shim.concerns(path) && shim.next("realpath", path) == Verdict::fail) return nullptr;
  return next(path, resolved);
}

int unlink(const char* path) noexcept {
  static const auto next = following<int(const char*)>("unlink");
  return changeNames("unlink", path, nullptr, [&] { return next(path); });
}

int remove(const char* path) noexcept {
  static const auto next = following<int(const char*)>("remove");
  return changeNames("unlink", path, nullptr, [&] { return next(path); });
}

int rename(const char* path, const char* other) noexcept {
  static const auto next = following<int(const char*, const char*)>("rename");
  return changeNames("rename", path, other, [&] { return next(path, other); });
}

int mkdir(const char* path, mode_t mode) noexcept {
  static const auto next = following<int(const char*, mode_t)>("mkdir");
  return changeNames("mkdir", path, nullptr, [&] { return next(path, mode); });
}

}  // extern "C"
