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

// Only a file that was not there is opened and closed here: closing one that SQLite has open
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
  if (isEmpty()) ::unlink(path_.c_str());
  path_ = std::move(other.path_);
  made_ = std::exchange(other.made_, std::nullopt);
  return *this;
}

NewFile::~NewFile() {
  if (isEmpty()) ::unlink(path_.c_str());
}

bool NewFile::isFileEmpty() const {
  return made_ && identityAt(path_) == made_ && sizeOf(path_) == 0;
}

bool NewFile::isEmpty() const noexcept try {
  return isFileEmpty() &&
         std::all_of(companionSuffixes.begin(), companionSuffixes.end(),
                     [&](const char* suffix) { return sizeOf(path_ + suffix) == 0; });
} catch (const std::bad_alloc&) {
  return false;  // The file stays, which is a store without goals.
}

// A journal beside the file is that of the lock.
void NewFile::removeUnderLock() noexcept {
  if (isFileEmpty()) ::unlink(path_.c_str());
  keep();
}

}  // namespace vemra::desk
