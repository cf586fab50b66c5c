#include "tests/apps/desk/store/SystemCallFault.hpp"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

using Call = SystemCallFault::Call;

struct Plan {
  Call call;
  int error;
  std::string nameEnding;
  int times;
};
std::optional<Plan> plan;
std::atomic<int> failed = 0;

bool fails(Call call, const std::string& name) {
  if (!plan || plan->call != call || !name.ends_with(plan->nameEnding)) return false;
  if (failed >= plan->times) return false;
  ++failed;
  errno = plan->error;
  return true;
}

std::string nameOf(int descriptor) {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), ignored);
}

int openFile(const char* path, int flags, int mode) {
  if (fails(Call::open, path)) return -1;
  if ((flags & O_RDWR) != 0 && fails(Call::openForWriting, path)) return -1;
  return ::open(path, flags, mode);
}

ssize_t readAt(int file, void* bytes, std::size_t size, off_t from) {
  if (fails(Call::read, nameOf(file))) return -1;
  return ::pread(file, bytes, size, from);
}

ssize_t writeAt(int file, const void* bytes, std::size_t size, off_t from) {
  if (fails(Call::write, nameOf(file))) return -1;
  return ::pwrite(file, bytes, size, from);
}

int control(int file, int command, ...) {
  va_list arguments;
  va_start(arguments, command);
  void* const argument = va_arg(arguments, void*);
  va_end(arguments);
  if (command == F_SETLK) {
    const bool gives = static_cast<struct flock*>(argument)->l_type == F_UNLCK;
    if (fails(gives ? Call::unlock : Call::lock, nameOf(file))) return -1;
  }
  return ::fcntl(file, command, argument);
}

struct Replacement {
  const char* name;
  sqlite3_syscall_ptr call;
};

const Replacement replacements[] = {
    {"open", reinterpret_cast<sqlite3_syscall_ptr>(openFile)},
    {"pread", reinterpret_cast<sqlite3_syscall_ptr>(readAt)},
    {"pread64", reinterpret_cast<sqlite3_syscall_ptr>(readAt)},
    {"pwrite", reinterpret_cast<sqlite3_syscall_ptr>(writeAt)},
    {"pwrite64", reinterpret_cast<sqlite3_syscall_ptr>(writeAt)},
    {"fcntl", reinterpret_cast<sqlite3_syscall_ptr>(control)},
};

void replaceAll(bool with) {
  sqlite3_initialize();
  sqlite3_vfs* const system = sqlite3_vfs_find("unix");
  for (const auto& [name, call] : replacements) {
    system->xSetSystemCall(system, name, with ? call : nullptr);
  }
}

}  // namespace

SystemCallFault::SystemCallFault(Call call, int error, std::string nameEnding, int times) {
  if (plan) throw std::logic_error("one fault at a time");
  failed = 0;
  plan = {call, error, std::move(nameEnding), times};
  replaceAll(true);
}

SystemCallFault::~SystemCallFault() {
  replaceAll(false);
  plan.reset();
}

int SystemCallFault::count() const {
  return failed;
}

}  // namespace vemra::desk
