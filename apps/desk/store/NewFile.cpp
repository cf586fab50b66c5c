#include "apps/desk/store/NewFile.hpp"

#include "apps/desk/store/StoreError.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vemra::desk {
namespace {

/// Locks the file against all its users through SQLite. False when one of them holds a lock, or
/// when the file cannot be locked.
///
/// SQLite's locks are on these bytes (https://www.sqlite.org/fileformat2.html, "The Lock-Byte
/// Page"). An open file description lock also conflicts with the locks of other connections in this
/// process.
bool lockExclusively(int file) {
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = 0x4000'0000;
  lock.l_len = 512;
  return ::fcntl(file, F_OFD_SETLK, &lock) == 0;
}

}  // namespace

// This opens and closes only a file that did not exist before: closing a file that SQLite has open
// elsewhere in this process would drop its locks.
NewFile::NewFile(const std::string& name, const std::string& path) : path_(path) {
  const int made = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (made < 0) {
    if (errno == EEXIST) return;
    throw StoreError(name, std::string("cannot be made: ") + std::strerror(errno));
  }
  struct stat status {};
  if (::fstat(made, &status) == 0) made_ = FileIdentity{status.st_dev, status.st_ino};
  ::close(made);
}

NewFile::NewFile(NewFile&& other) noexcept
    : path_(std::move(other.path_)), made_(std::exchange(other.made_, std::nullopt)) {}

NewFile& NewFile::operator=(NewFile&& other) noexcept {
  removeUnlessUsed();
  path_ = std::move(other.path_);
  made_ = std::exchange(other.made_, std::nullopt);
  return *this;
}

NewFile::~NewFile() {
  removeUnlessUsed();
}

void NewFile::removeUnlessUsed() const noexcept {
  if (!isEmpty()) return;
  const int file = ::open(path_.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return;
  // If the lock belongs to another connection in this process, closing the file would drop it. So
  // the file stays open; this happens at most once for each created store.
  if (!lockExclusively(file)) return;
  if (isEmpty()) ::unlink(path_.c_str());
  ::close(file);
}

bool NewFile::isEmpty() const noexcept try {
  return made_ && identityAt(path_) == made_ && sizeOf(path_) == 0 &&
         std::all_of(companionSuffixes.begin(), companionSuffixes.end(),
                     [&](const char* suffix) { return sizeOf(path_ + suffix) == 0; });
} catch (const std::bad_alloc&) {
  return false;  // the file stays: a store without goals
}

}  // namespace vemra::desk
