#pragma once

#include "apps/desk/commands/Request.hpp"
#include "apps/desk/store/GoalStore.hpp"

#include <optional>
#include <ostream>
#include <string>

namespace vemra::desk {

/// The file of the store that a request is about.
std::string storeFile(const Request& request);

/// The same for one that will be written: makes the folder of the user's own store. The folder of a
/// file that the user named is never made.
std::string storeFileToWrite(const Request& request);

/// The store that a request is about, to read from it; none when nothing has been stored in it yet.
/// The folder of a file that the user named must be there. May throw a `StoreError`.
std::optional<GoalStore> existingStore(const Request& request);

/// Carries out every request but the window.
///
/// - Returns: the exit code. 0: done. 1: done, but the result could not be written to `output`. 2:
///   a document or a store that cannot be used, or a goal that the store does not have; then
///   nothing is on `output`, nothing is changed, and `diagnostics` says why.
int runCommand(const Request& request, std::ostream& output, std::ostream& diagnostics);

}  // namespace vemra::desk
