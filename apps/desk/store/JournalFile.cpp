#include "apps/desk/store/JournalFile.hpp"

#include "apps/desk/store/StoreError.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace vemra::desk {
namespace {

using namespace std::chrono_literals;

constexpr auto pause = 2ms;  // between two tries to lock

/// Writes the text at an offset. Returns 0, or the error of the system.
int write(int descriptor, std::string_view text, std::size_t offset) {
  while (!text.empty()) {
    const ssize_t count =
        ::pwrite(descriptor, text.data(), text.size(), static_cast<off_t>(offset));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    text.remove_prefix(static_cast<std::size_t>(count));
    offset += static_cast<std::size_t>(count);
  }
  return 0;
}

}  // namespace

JournalFile::JournalFile(JournalFile&& other) noexcept
    : path_(std::move(other.path_)), descriptor_(std::exchange(other.descriptor_, -1)) {}

JournalFile::~JournalFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::optional<JournalFile> JournalFile::open(const std::string& path, Missing missing,
                                             std::chrono::milliseconds patience) {
  const Deadline deadline = std::chrono::steady_clock::now() + patience;
  while (true) {
    const int create = missing == Missing::isCreated ? O_CREAT : 0;
    // Without O_NONBLOCK, a pipe in its place would stop the program.
    const int descriptor = ::open(
        path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | create, S_IRUSR | S_IWUSR);
    if (descriptor < 0 && errno == ENOENT && create == 0) return std::nullopt;
    JournalFile file(path, descriptor);
    if (descriptor < 0) file.fail("cannot be opened", errno);
    file.checkOwner();
    file.lock(deadline);
    // Another program may have removed or replaced the file between the opening and the lock.
    if (file.isAtItsPath()) return file;
    if (std::chrono::steady_clock::now() > deadline) throw StoreBusy(path);
  }
}

bool JournalFile::isAtItsPath() const {
  struct stat open {};
  if (::fstat(descriptor_, &open) != 0) fail("cannot be examined", errno);
  struct stat there {};
  if (::stat(path_.c_str(), &there) != 0) {
    if (errno != ENOENT) fail("cannot be examined", errno);
    return false;
  }
  return there.st_dev == open.st_dev && there.st_ino == open.st_ino;
}

void JournalFile::lock(Deadline deadline) const {
  while (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) fail("cannot be locked", errno);
    if (std::chrono::steady_clock::now() > deadline) throw StoreBusy(path_);
    std::this_thread::sleep_for(pause);
  }
}

void JournalFile::checkOwner() const {
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0) fail("cannot be examined", errno);
  if (!S_ISREG(status.st_mode)) throw StoreError(path_, "is not a file");
  if (status.st_uid != ::geteuid()) throw StoreError(path_, "belongs to another user");
  if ((status.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
    throw StoreError(path_, "may be written by other users");
  }
}

std::size_t JournalFile::size() const {
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0) fail("cannot be examined", errno);
  return static_cast<std::size_t>(status.st_size);
}

std::string JournalFile::read() const {
  const std::size_t bytes = size();
  if (bytes > most) throw StoreError(path_, "is longer than 64 MiB");
  std::string text(bytes, '\0');
  std::size_t length = 0;
  while (length < text.size()) {
    const ssize_t count = ::pread(descriptor_, text.data() + length, text.size() - length,
                                  static_cast<off_t>(length));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail("cannot be read", errno);
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
  }
  text.resize(length);
  return text;
}

void JournalFile::replaceFrom(std::size_t offset, std::string_view text, Sync sync) const {
  std::size_t before = size();
  // A longer rest goes first: behind a shorter text, its end would stay for a moment.
  if (before > offset + text.size()) {
    if (::ftruncate(descriptor_, static_cast<off_t>(offset)) != 0) {
      fail("cannot be written", errno);
    }
    before = offset;
  }
  int error = write(descriptor_, text, offset);
  if (error == 0 && sync == Sync::now && ::fsync(descriptor_) != 0) error = errno;
  if (error != 0) {
    const auto length = static_cast<off_t>(std::min(before, size()));
    const bool isAsBefore = ::ftruncate(descriptor_, length) == 0;
    fail(isAsBefore ? "cannot be written" : "cannot be written, and may end in half a line", error);
  }
  if (offset == 0 && sync == Sync::now) syncFolder();
}

void JournalFile::replaceBy(std::string_view text) const {
  const std::string path = path_ + "-new";
  ::unlink(path.c_str());  // of a program that has ended in here; only one is, under the lock
  const int descriptor =
      ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
  if (descriptor < 0) fail("cannot be rewritten", errno);
  int error = write(descriptor, text, 0);
  // Before the new name: otherwise a power cut could leave an empty file under it.
  if (error == 0 && ::fsync(descriptor) != 0) error = errno;
  ::close(descriptor);
  if (error == 0 && ::rename(path.c_str(), path_.c_str()) != 0) error = errno;
  if (error != 0) {
    ::unlink(path.c_str());
    fail("cannot be rewritten", error);
  }
  syncFolder();
}

void JournalFile::sync() const {
  if (::fsync(descriptor_) != 0) fail("cannot be written", errno);
  syncFolder();
}

void JournalFile::remove(Sync sync) const {
  if (::unlink(path_.c_str()) != 0 && errno != ENOENT) fail("cannot be removed", errno);
  if (sync == Sync::now) syncFolder();
}

void JournalFile::syncFolder() const {
  const std::string folder = std::filesystem::path(path_).parent_path().string();
  const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) return;  // a folder that may not be read: its entry is then written later
  ::fsync(opened);
  ::close(opened);
}

void JournalFile::fail(const char* what, int error) const {
  throw StoreError(path_, std::string(what) + ": " + std::strerror(error));
}

}  // namespace vemra::desk
