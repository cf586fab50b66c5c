#pragma once

#include "apps/desk/store/FileIdentity.hpp"

#include <optional>
#include <set>
#include <sys/types.h>

namespace vemra::desk {

/// The processes that hold a lock on a file, as `/proc/locks` lists them.
///
/// Nil when that list is of no use: it cannot be read, or it does not even contain the lock that
/// this process holds on `ours`, a file of the same file system. Some file systems (btrfs) show
/// another device there than `stat` does.
///
/// Examining the file itself would need a descriptor, and closing that would drop the locks that
/// this process has on the file through SQLite. Processes outside of this container are not listed.
std::optional<std::set<pid_t>> lockHolders(const FileIdentity& file, const FileIdentity& ours);

}  // namespace vemra::desk
