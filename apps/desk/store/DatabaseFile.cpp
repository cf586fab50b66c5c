#include "apps/desk/store/DatabaseFile.hpp"

#include "apps/desk/store/StoreError.hpp"
#include "apps/documents/DocumentError.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vemra::desk {
namespace {

/// The size of the header of every database. SQLite reads zeros where a file ends earlier. It
/// treats a file of one byte, which it creates itself on some systems, as an empty database that it
/// may overwrite.
constexpr off_t headerSize = 100;

/// An absolute path always names a file; SQLite gives ":memory:" and "" a special meaning.
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

/// Whether this user may write there. On a read-only file system no user may.
bool mayBeWritten(const std::string& path) {
  return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

/// Whether SQLite keeps a file beside the database: a program has the database open, or was killed
/// meanwhile.
bool isInUse(const std::string& path) {
  return std::any_of(companionSuffixes.begin(), companionSuffixes.end(),
                     [&](const char* suffix) { return sizeOf(path + suffix) > 0; });
}

/// Whether the file at a path is certainly another than the noted file. False when the path cannot
/// be examined: a change that is already committed must not be reported as refused.
bool isAnother(const std::string& path, const std::optional<FileIdentity>& noted) {
  const std::optional<FileIdentity> now = identityAt(path);
  return now && now != noted;
}

/// A text that changes whenever a program writes the file.
std::string stateOf(const struct stat& status) {
  return std::to_string(status.st_ino) + ' ' + std::to_string(status.st_size) + ' ' +
         std::to_string(status.st_mtim.tv_sec) + ' ' + std::to_string(status.st_mtim.tv_nsec);
}

std::string stateOf(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? stateOf(status) : "gone";
}

/// Throws the `StoreError` for a missing file.
[[noreturn]] void failToFind(const std::string& name, const std::string& path, int error) {
  std::error_code noLink;
  const std::filesystem::path target = std::filesystem::read_symlink(path, noLink);
  if (error != ENOENT || noLink) failToOpen(name, error);
  throw StoreError(name, "is a symbolic link to " + documents::inQuotes(target.string()) +
                             ", where there is no file");
}

/// The path as a URI, with an escape for every byte that has a special meaning there.
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

DatabaseFile::DatabaseFile(const std::string& name, Opening opening)
    : name_(name),
      given_(absolutePath(name).string()),
      access_(opening == Opening::existing ? Access::reading : Access::writing) {
  if (opening == Opening::orCreate) newFile_ = NewFile(name, given_);
  struct stat status {};
  if (::stat(given_.c_str(), &status) != 0) failToFind(name, given_, errno);
  if (!S_ISREG(status.st_mode)) {
    throw StoreError(name, "cannot be opened: not a file");  // a pipe would block us
  }
  if (status.st_size > 0 && status.st_size < headerSize) {
    throw StoreError(name, "is not an SQLite database");
  }
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(given_, error);
  if (error) failToOpen(name, error.value());
  path_ = real.string();
  uri_ = uriOf(path_);

  checkOwners(name, path_, access_);
  const bool isWritable = mayBeWritten(path_);
  if (access_ == Access::writing) {
    if (!isWritable) throw StoreError(name, "is read-only");
    return;
  }
  // Companion files that a reader creates beside another user's store would lock that user out. For
  // root, SQLite gives these files to the store's owner.
  const bool isOnlyLent = ::geteuid() != 0 && belongsToAnotherUser(path_);
  const bool mayHaveFilesMade = mayBeWritten(real.parent_path().string()) && !isOnlyLent;
  if (!(isWritable && mayHaveFilesMade)) {
    if (!isInUse(path_)) {
      stateAtRest_ = stateOf(path_);
      uri_ += "?immutable=1";
    } else if (!mayHaveFilesMade && sizeOf(path_ + "-shm") == 0) {
      throw StoreError(
          name, isOnlyLent ? "has changes in a log beside it, which only its owner can take up"
                           : "has changes in a log beside it, which cannot be read in a "
                             "folder that is read-only");
    }
  }
}

void DatabaseFile::confirm() const {
  if (!isAtRest()) return;
  if (isInUse(path_) || stateOf(path_) != stateAtRest_) {
    throw StoreError(name_, "was changed by another program while it was read");
  }
}

std::optional<std::string> DatabaseFile::state() const {
  // The coarsest clock of a file system has steps of two seconds.
  constexpr std::time_t longestStep = 2;
  std::string state;
  for (const char* suffix : {"", "-wal"}) {
    struct stat status {};
    const bool isLog = *suffix != '\0';
    if (::stat((path_ + suffix).c_str(), &status) != 0) {
      if (isLog && errno == ENOENT) continue;
      return std::nullopt;
    }
    // SQLite creates and removes an empty log without changing the database.
    if (isLog && status.st_size == 0) continue;
    if (status.st_mtim.tv_sec + longestStep >= std::time(nullptr)) return std::nullopt;
    state += stateOf(status) + '\n';
  }
  return state;
}

void DatabaseFile::confirmOwners() const {
  if (!isAtRest() && !companions_[0]) checkOwners(name_, path_, access_);
}

void DatabaseFile::noteFile() {
  identity_ = identityAt(given_);
}

void DatabaseFile::noteCompanions() {
  if (isAtRest()) return;
  checkOwners(name_, path_, access_);
  for (std::size_t i = 0; i < companions_.size(); ++i) {
    companions_[i] = identityAt(path_ + companionSuffixes[i]);
  }
}

std::optional<std::string> DatabaseFile::displacement() const {
  if (isMissing(given_)) return "was moved or removed while it was open";
  if (isAnother(given_, identity_)) return "was replaced by another file while it was open";
  for (std::size_t i = 0; i < companions_.size(); ++i) {
    const std::string companion = path_ + companionSuffixes[i];
    if (companions_[i] && (isMissing(companion) || isAnother(companion, companions_[i]))) {
      return "was open while the file " + companion + " beside it was moved, removed or replaced";
    }
  }
  return std::nullopt;
}

void DatabaseFile::removeCompanions() const {
  for (std::size_t i = 0; i < companions_.size(); ++i) {
    const std::string companion = path_ + companionSuffixes[i];
    if (companions_[i] && identityAt(companion) == companions_[i]) ::unlink(companion.c_str());
  }
}

}  // namespace vemra::desk
