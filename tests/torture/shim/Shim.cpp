#include "tests/torture/shim/Shim.hpp"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vemra::torture {
namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

long numberIn(const char* name, long otherwise) {
  const std::string text = variable(name);
  return text.empty() ? otherwise : std::stol(text);
}

// Needs no constructor: the first allocation comes before any constructor.
std::atomic<long> memoryAt{0};  // counted down to 0, where the first one fails; 0 and less: no more
std::atomic<long> memoryTimes{0};
std::atomic<bool> isCountingMemory{false};

/// Set while the shim itself works, because its own allocations must succeed.
struct Own {
  static inline thread_local int depth = 0;
  Own() { ++depth; }
  ~Own() { --depth; }
  Own(const Own&) = delete;
  Own& operator=(const Own&) = delete;
};

}  // namespace

bool Shim::allocates() {
  if (!isCountingMemory || Own::depth > 0 || --memoryAt > 0) return true;
  if (memoryTimes-- <= 0) return true;
  errno = ENOMEM;
  return false;
}

void Shim::beginToCountMemory() {
  static const long at = numberIn("VEMRA_SHIM_MEMORY_AT", 0);
  if (at == 0 || isCountingMemory) return;
  memoryTimes = numberIn("VEMRA_SHIM_MEMORY_TIMES", 1);
  memoryAt = at;
  isCountingMemory = true;
}

Shim& Shim::instance() {
  static Shim shim;
  return shim;
}

Shim::Shim()
    : folder_(variable("VEMRA_SHIM_FOLDER")),
      off_(variable("VEMRA_SHIM_OFF")),
      act_(variable("VEMRA_SHIM_ACT")),
      at_(numberIn("VEMRA_SHIM_AT", 0)),
      times_(numberIn("VEMRA_SHIM_TIMES", 1)),
      quota_(numberIn("VEMRA_SHIM_QUOTA", -1)),
      isInAHurry_(!variable("VEMRA_SHIM_HURRY").empty()) {
  const std::string log = variable("VEMRA_SHIM_LOG");
  if (log.empty()) return;
  static const auto open = following<decltype(::open)>("open");
  log_ = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  if (log_ < 0) ::_exit(99);
}

bool Shim::concerns(const char* path) const {
  return path != nullptr && !folder_.empty() &&
         std::strncmp(path, folder_.c_str(), folder_.size()) == 0;
}

bool Shim::concerns(int descriptor) {
  const std::lock_guard lock(mutex_);
  return open_.contains(descriptor);
}

void Shim::opened(int descriptor, const char* path) {
  const Own own;
  const std::lock_guard lock(mutex_);
  open_[descriptor] = path;
}

void Shim::closed(int descriptor) {
  const std::lock_guard lock(mutex_);
  open_.erase(descriptor);
}

bool Shim::isOff() const {
  static const auto access = following<decltype(::access)>("access");
  return !off_.empty() && access(off_.c_str(), F_OK) == 0;
}

Verdict Shim::next(const char* call, const char* path, Kind kind) {
  const Own own;
  beginToCountMemory();
  long number = 0;
  {
    const std::lock_guard lock(mutex_);
    number = ++count_;
  }
  const bool passes = act_.empty() || number < at_ || number - at_ >= times_ || isOff();
  if (isLogging()) log(passes ? "call" : "fault", (std::string(call) + ' ' + path).c_str(), 0);
  if (passes) return Verdict::pass;
  if ((act_ == "kill-half" || act_ == "short") && kind == Kind::writes) return Verdict::half;
  if (act_ == "short") return Verdict::pass;
  if (act_ == "kill" || act_ == "kill-half") ::raise(SIGKILL);
  errno = std::stoi(act_);
  return Verdict::fail;
}

Verdict Shim::next(const char* call, int descriptor, Kind kind) {
  const Own own;
  return next(call, pathOf(descriptor).c_str(), kind);
}

void Shim::endAfterHalf() const {
  if (act_ == "kill-half") ::raise(SIGKILL);
}

std::string Shim::pathOf(int descriptor) {
  const std::lock_guard lock(mutex_);
  return open_[descriptor];
}

std::size_t Shim::room(std::size_t growth) {
  const std::lock_guard lock(mutex_);
  if (quota_ < 0 || isOff()) return growth;
  const std::size_t taken = std::min(growth, static_cast<std::size_t>(quota_));
  quota_ -= static_cast<long>(taken);
  return taken;
}

void Shim::giveBack(std::size_t shrinkage) {
  const std::lock_guard lock(mutex_);
  if (quota_ >= 0) quota_ += static_cast<long>(shrinkage);
}

void Shim::log(const char* call, const char* path, ino_t inode, off_t offset, const void* data,
               std::size_t length) {
  const Own own;
  static const auto write = following<decltype(::write)>("write");
  std::string record = std::string(call) + '\t' + path + '\t' + std::to_string(inode) + '\t' +
                       std::to_string(offset) + '\t' + std::to_string(length) + '\n';
  if (data != nullptr) record.append(static_cast<const char*>(data), length);
  if (write(log_, record.data(), record.size()) < 0) ::_exit(99);
}

void Shim::log(const char* call, int descriptor, off_t offset, const void* data,
               std::size_t length) {
  const Own own;
  const std::string path = pathOf(descriptor);
  static const auto fstat = following<decltype(::fstat)>("fstat");
  struct stat status {};
  fstat(descriptor, &status);
  log(call, path.c_str(), status.st_ino, offset, data, length);
}

}  // namespace vemra::torture
