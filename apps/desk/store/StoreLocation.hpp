#pragma once

#include <string>

namespace vemra::desk {

/// The user's own store: `vemra-desk/goals.sqlite` in the user's data folder, which is
/// `$XDG_DATA_HOME` or else `~/.local/share` (XDG Base Directory Specification). Makes nothing.
///
/// Throws a `StoreError` when the user has neither.
std::string userStoreFile();

/// Makes the folder of the user's own store, and those above it, as far as they are not there: for
/// the user alone. Throws a `StoreError` when that fails.
void makeFolderOf(const std::string& file);

}  // namespace vemra::desk
