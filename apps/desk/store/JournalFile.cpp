#include "apps/desk/store/JournalFile.hpp"

#include "apps/desk/store/FileIdentity.hpp"
#include "apps/desk/store/StoreError.hpp"

#include <cerrno>
#include <chrono>
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

constexpr off_t largest = off_t{64} << 20;

}  // namespace

JournalFile::JournalFile(JournalFile&& other) noexcept
    : path_(std::move(other.path_)), descriptor_(std::exchange(other.descriptor_, -1)) {}

JournalFile::~JournalFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::optional<JournalFile> JournalFile::open(const std::string& path, Missing missing) {
  while (true) {
    const int create = missing == Missing::isCreated ? O_CREAT : 0;
    // Without O_NONBLOCK, a pipe in its place would stop the program.
    const int descriptor = ::open(
        path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | create, S_IRUSR | S_IWUSR);
    if (descriptor < 0 && errno == ENOENT && create == 0) return std::nullopt;
    JournalFile file(path, descriptor);
    if (descriptor < 0) file.fail("cannot be opened", errno);
    file.checkOwner();
    file.lock();
    // Another program may have removed the file between the opening and the lock.
    if (file.isAtItsPath()) return file;
  }
}

bool JournalFile::isAtItsPath() const {
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0) fail("cannot be examined", errno);
  return identityAt(path_) == FileIdentity{status.st_dev, status.st_ino};
}

void JournalFile::lock() const {
  using namespace std::chrono_literals;
  const auto deadline = std::chrono::steady_clock::now() + 2s;
  while (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) fail("cannot be locked", errno);
    if (std::chrono::steady_clock::now() > deadline) throw StoreBusy(path_);
    std::this_thread::sleep_for(2ms);
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

std::string JournalFile::read() const {
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0) fail("cannot be examined", errno);
  if (status.st_size > largest) throw StoreError(path_, "is longer than 64 MiB");
  std::string text(static_cast<std::size_t>(status.st_size), '\0');
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

void JournalFile::replaceFrom(std::size_t offset, std::string_view text) const {
  struct stat before {};
  if (::fstat(descriptor_, &before) != 0) fail("cannot be examined", errno);
  const auto start = static_cast<off_t>(offset);
  const auto giveUp = [&](int error) {
    const bool isAsBefore = ::ftruncate(descriptor_, before.st_size) == 0;
    fail(isAsBefore ? "cannot be written" : "cannot be written, and may end in half a line", error);
  };
  std::size_t done = 0;
  while (done < text.size()) {
    const ssize_t count = ::pwrite(descriptor_, text.data() + done, text.size() - done,
                                   start + static_cast<off_t>(done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) giveUp(errno);
    done += static_cast<std::size_t>(count);
  }
  if (::ftruncate(descriptor_, start + static_cast<off_t>(text.size())) != 0) giveUp(errno);
  if (::fsync(descriptor_) != 0) giveUp(errno);
  if (offset == 0) syncFolder();
}

void JournalFile::remove() const {
  if (::unlink(path_.c_str()) != 0 && errno != ENOENT) fail("cannot be removed", errno);
  syncFolder();
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
