#pragma once

#include <string>

namespace vemra::desk {

/// The path of the user's own store: `vemra-desk/goals.sqlite` in the user's data folder, which is
/// `$XDG_DATA_HOME` or else `~/.local/share` (XDG Base Directory Specification). Creates nothing.
///
/// Throws a `StoreError` when the user has neither folder.
std::string userStoreFile();

/// Creates the folder of the user's own store, and missing folders above it, with access for the
/// user only. Throws a `StoreError` when that fails.
void makeFolderOf(const std::string& file);

}  // namespace vemra::desk
