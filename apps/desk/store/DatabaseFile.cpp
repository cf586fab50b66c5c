#include "apps/desk/store/DatabaseFile.hpp"

#include "apps/desk/store/StoreError.hpp"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vemra::desk {
namespace {

/// What every database begins with. SQLite reads zeros where a file ends before that, and a file of
/// one byte, which it makes itself on some systems, as an empty database that it may write over.
constexpr off_t headerSize = 100;

/// An absolute path is always a file; SQLite gives ":memory:" and "" a meaning of their own.
std::filesystem::path absolutePath(const std::string& file) {
  if (file.empty()) throw StoreError("\"\"", "is not the name of a file");
  if (file.find('\0') != std::string::npos) throw StoreError(file, "is not the name of a file");
  std::error_code error;
  std::filesystem::path path = std::filesystem::absolute(file, error);
  if (error) throw StoreError(file, "cannot be opened: " + error.message());
  return path;
}

[[noreturn]] void failToOpen(const std::string& file, int error) {
  throw StoreError(file, std::string("cannot be opened: ") + std::strerror(error));
}

/// Makes a file that is not there.
///
/// Only such a one is opened and closed here: closing one that SQLite has open elsewhere in this
/// process would drop its locks.
void make(const std::string& file, const std::filesystem::path& path) {
  const int made = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (made >= 0) ::close(made);
  if (made < 0 && errno != EEXIST) {
    throw StoreError(file, std::string("cannot be made: ") + std::strerror(errno));
  }
}

/// Whether this user may write there; on a file system that is read-only nobody may.
bool mayBeWritten(const std::string& path) {
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

/// The size of a file; 0 when there is none.
std::int64_t sizeOf(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? std::int64_t{status.st_size} : 0;
}

/// Whether SQLite keeps something beside the file: somebody has it open, or was killed meanwhile.
bool isInUse(const std::string& path) {
  return sizeOf(path + "-shm") > 0 || sizeOf(path + "-wal") > 0 || sizeOf(path + "-journal") > 0;
}

/// What changes when somebody writes the file.
std::string stateOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return "gone";
  return std::to_string(status.st_ino) + ' ' + std::to_string(status.st_size) + ' ' +
         std::to_string(status.st_mtim.tv_sec) + ' ' + std::to_string(status.st_mtim.tv_nsec);
}

/// The path as a URI, every byte that could mean something else there as an escape.
std::string uriOf(std::string_view path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string uri = "file://";
  for (const char byte : path) {
    const bool isPlain = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
                         (byte >= '0' && byte <= '9') || byte == '/';
    const auto code = static_cast<unsigned char>(byte);
    if (isPlain) {
      uri += byte;
    } else {
      uri += {'%', digits[code >> 4], digits[code & 15]};
    }
  }
  return uri;
}

}  // namespace

DatabaseFile::DatabaseFile(const std::string& name, Opening opening) : name_(name) {
  const std::filesystem::path given = absolutePath(name);
  if (opening == Opening::orCreate) make(name, given);
  struct stat status {};
  if (::stat(given.c_str(), &status) != 0) failToOpen(name, errno);
  if (!S_ISREG(status.st_mode)) {
    throw StoreError(name, "cannot be opened: not a file");  // a pipe would keep us waiting
  }
  if (status.st_size > 0 && status.st_size < headerSize) {
    throw StoreError(name, "is not an SQLite database");
  }
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(given, error);
  if (error) failToOpen(name, error.value());
  path_ = real.string();
  uri_ = uriOf(path_);

  const bool isWritable = mayBeWritten(path_);
  const bool isFolderWritable = mayBeWritten(real.parent_path().string());
  if (opening == Opening::orCreate) {
    if (!isWritable) throw StoreError(name, "is read-only");
  } else if (!(isWritable && isFolderWritable)) {
    if (!isInUse(path_)) {
      stateAtRest_ = stateOf(path_);
      uri_ += "?immutable=1";
    } else if (!isFolderWritable && sizeOf(path_ + "-shm") == 0) {
      throw StoreError(name,
                       "has changes in a log beside it, which cannot be read in a folder "
                       "that is read-only");
    }
  }
}

void DatabaseFile::confirm() const {
  if (!isAtRest()) return;
  if (isInUse(path_) || stateOf(path_) != stateAtRest_) {
    throw StoreError(name_, "was changed by another program while it was read");
  }
}

}  // namespace vemra::desk
