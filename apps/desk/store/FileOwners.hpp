#pragma once

#include <string>

namespace vemra::desk {

/// The purpose of opening a store.
enum class Access { reading, writing };

/// Refuses a store into which another user may have put content that this user would take for their
/// own.
///
/// SQLite merges the content that it finds under the names of its log and its journal into the
/// database. So in a folder where others may create files, those two names are a way into the
/// store.
///
/// - A log, a journal or a shared memory beside the store must be a regular file, and must belong
///   to this user, to root, or to the owner of the store, who could write the store itself.
/// - A store of this user or of root is accepted; its owner decides who else may write it.
/// - A store of another user can be read, unless everybody may write it or create files beside it:
///   then its content may come from any user. It cannot be written when users other than its owner
///   may write it, because they could change the recorded outcomes.
///
/// - Parameters name, path: the store's name as given, and its absolute path without links.
///
/// Throws a `StoreError` that names the file, the cause and a remedy.
void checkOwners(const std::string& name, const std::string& path, Access access);

/// Whether the file belongs to neither this user nor root.
bool belongsToAnotherUser(const std::string& path);

}  // namespace vemra::desk
