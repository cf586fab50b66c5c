#pragma once

#include "apps/desk/store/FileIdentity.hpp"

#include <optional>
#include <set>
#include <sys/types.h>

namespace vemra::desk {

/// The processes that hold a lock on a file, as `/proc/locks` lists them; nil when it cannot be read.
///
/// Asking the file itself would need a descriptor, and closing that would drop the locks that this
/// process has on the file through SQLite. Processes outside of this container are not listed.
std::optional<std::set<pid_t>> lockHolders(const FileIdentity& file);

}  // namespace vemra::desk
