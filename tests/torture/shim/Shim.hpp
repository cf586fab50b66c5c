#pragma once

#include <cstddef>
#include <dlfcn.h>
#include <map>
#include <mutex>
#include <string>
#include <sys/types.h>

/// \file
/// Loaded before the C library (LD_PRELOAD), replaces the calls that a store makes on its files:
/// counts them, logs them, and lets one fail that the test chooses.
///
/// Variables of the environment control it. Only files below VEMRA_SHIM_FOLDER count.
///
///     VEMRA_SHIM_AT=N       the N-th call, counted from 1 …
///     VEMRA_SHIM_TIMES=N    … and so many in all (1) …
///     VEMRA_SHIM_ACT=…      … fail with an errno (its number), are `short` (half of the bytes), or
///                           end the process by SIGKILL: `kill` before, `kill-half` in the middle
///     VEMRA_SHIM_MEMORY_AT=N  after the first call the N-th allocation fails, and so many in all:
///     VEMRA_SHIM_MEMORY_TIMES=N
///     VEMRA_SHIM_QUOTA=N    files may grow by N bytes, then the disk is full
///     VEMRA_SHIM_HURRY=1    usleep and nanosleep return at once: the database asks again without a pause
///     VEMRA_SHIM_OFF=FILE   nothing fails any more once this file is there
///     VEMRA_SHIM_LOG=FILE   every call is appended to this file, as `Shim::log` describes

namespace vemra::torture {

/// The function of the C library that ours replaces.
template <class Function>
Function* following(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

/// The fate of a call.
enum class Verdict { pass, fail, half };

/// The state of the process: which descriptors count, how many calls there were.
class Shim {
 public:
  static Shim& instance();

  bool concerns(const char* path) const;
  bool concerns(int descriptor);
  void opened(int descriptor, const char* path);
  void closed(int descriptor);

  /// Counts a call. `fail` leaves its errno in `errno`; only what `writes` can be `half`.
  enum class Kind { other, writes };
  Verdict next(const char* call, const char* path, Kind kind = Kind::other);
  Verdict next(const char* call, int descriptor, Kind kind = Kind::other);

  /// After a half call: ends the process, if the test has chosen that.
  void endAfterHalf() const;

  /// Counts an allocation; false when it is to fail. The shim's own ones never do.
  static bool allocates();

  /// Takes growth from the quota, and returns how much of it fits.
  std::size_t room(std::size_t growth);
  void giveBack(std::size_t shrinkage);
  bool hasQuota() const { return quota_ >= 0; }

  /// Appends to the log: call, path, inode, offset and length with tabs between them and a line
  /// feed behind them, then that many bytes of data.
  void log(const char* call, const char* path, ino_t inode, off_t offset = 0,
           const void* data = nullptr, std::size_t length = 0);
  void log(const char* call, int descriptor, off_t offset = 0, const void* data = nullptr,
           std::size_t length = 0);
  bool isInAHurry() const { return isInAHurry_; }
  bool isLogging() const { return log_ >= 0; }

 private:
  Shim();
  bool isOff() const;
  void beginToCountMemory();
  std::string pathOf(int descriptor);

  std::mutex mutex_;
  std::string folder_;
  std::string off_;
  std::string act_;
  long at_ = 0;
  long times_ = 1;
  long count_ = 0;
  long quota_ = -1;
  bool isInAHurry_ = false;
  int log_ = -1;
  std::map<int, std::string> open_;
};

/// Runs a call on a file, or lets it fail, as the shim decides.
template <class Where, class Call>
auto counted(const char* name, const Where& where, Call call) -> decltype(call()) {
  if (!Shim::instance().concerns(where)) return call();
  if (Shim::instance().next(name, where) == Verdict::fail) return decltype(call())(-1);
  return call();
}

}  // namespace vemra::torture
