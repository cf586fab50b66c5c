#pragma once

#include <array>
#include <optional>
#include <string>
#include <sys/types.h>

namespace vemra::desk {

/// Identifies the file at a path. Two paths with equal identities are one file.
struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// The identity of the file at a path, following symbolic links; none when there is no file or it
/// cannot be examined.
std::optional<FileIdentity> identityAt(const std::string& path);

/// A text that identifies the file at a path also after a restart of the system; "" when there is
/// no file or it cannot be examined.
///
/// It consists of the inode and the time at which the file was made: a copy of a file, and a file
/// that gets the inode of a removed one, have other texts. The number of a device may change when
/// the system starts, so it is used only where the file system keeps no such time.
std::string fileMarkAt(const std::string& path);

/// Whether a path certainly does not exist; false when the path cannot be examined.
bool isMissing(const std::string& path);

/// The size of a file in bytes; 0 when there is none.
off_t sizeOf(const std::string& path);

/// The suffixes that SQLite appends to a database's name for the files beside it: the log of the
/// write-ahead mode, the shared memory of its users, and the journal of the other modes.
inline constexpr std::array<const char*, 3> companionSuffixes = {"-wal", "-shm", "-journal"};

}  // namespace vemra::desk
