#pragma once

#include <string>

namespace vemra::desk {

/// What a store is opened for.
enum class Access { reading, writing };

/// Refuses a store into which another user may have put what this user would take for their own.
///
/// SQLite takes the content that it finds under the names of its log and its journal into the
/// database, so in a folder in which others may make files those two names are a way into the
/// store.
///
/// - A log, a journal or a shared memory beside the store must be a regular file, and belong to
///   this user, to root, or to the owner of the store, who could write the store itself.
/// - A store of this user or of root is used; whom else they let write it is their decision.
/// - A store of another user can be read, unless everybody may write it or make files beside it:
///   then its content may come from any user. It is not written when more users than its owner may
///   write it: what is recorded there would be theirs to change.
///
/// - Parameters name, path: the store as it was named, and as an absolute path without links.
///
/// Throws a `StoreError` that names the file, the cause and what can be done.
void checkOwners(const std::string& name, const std::string& path, Access access);

/// Whether the file belongs to neither this user nor root.
bool belongsToAnotherUser(const std::string& path);

}  // namespace vemra::desk
