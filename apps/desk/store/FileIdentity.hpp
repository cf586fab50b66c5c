#pragma once

#include <array>
#include <optional>
#include <string>
#include <sys/types.h>

namespace vemra::desk {

/// Which file is at a path. Two paths with equal identities are one file.
struct FileIdentity {
  dev_t device = 0;
  ino_t inode = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

/// The file at a path, behind symbolic links; none when there is no file or it cannot be looked at.
std::optional<FileIdentity> identityAt(const std::string& path);

/// Whether there is nothing at a path, for certain: false when the path cannot be looked at.
bool isMissing(const std::string& path);

/// The size of a file in bytes; 0 when there is none.
off_t sizeOf(const std::string& path);

/// What SQLite appends to the name of a database for the files that it keeps beside it: the log of
/// the write-ahead mode, the memory that its users share, and the journal of the other modes.
inline constexpr std::array<const char*, 3> companionSuffixes = {"-wal", "-shm", "-journal"};

}  // namespace vemra::desk
