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

/// Whether a path certainly does not exist; false when the path cannot be examined.
bool isMissing(const std::string& path);

/// The size of a file in bytes; 0 when there is none.
off_t sizeOf(const std::string& path);

/// The suffixes that SQLite appends to a database's name for the files beside it: the log of the
/// write-ahead mode, the shared memory of its users, and the journal of the other modes.
inline constexpr std::array<const char*, 3> companionSuffixes = {"-wal", "-shm", "-journal"};

}  // namespace vemra::desk
