#pragma once

#include "apps/desk/store/FileIdentity.hpp"

#include <optional>
#include <string>

namespace vemra::desk {

/// A file that was created for a database. It is removed at the end of the scope if it is still
/// empty: a store that could not be filled leaves no file behind.
///
/// Only the created file is removed, only while it is empty, and only under an exclusive lock like
/// SQLite's. If another process uses the file, that process has locked it, and the file stays. A
/// process that waits for the lock finds the file removed before it acknowledges anything. A file
/// that cannot be locked stays too: an empty file is a store without goals.
///
/// Destroy it after the connection to the file.
class NewFile {
 public:
  NewFile() = default;

  /// Creates a file that only its owner can read. If there is a file already, this creates nothing
  /// and later removes nothing.
  ///
  /// - Parameter name: the name of the file in a `StoreError` when it cannot be created.
  /// - Parameter path: the same file as an absolute path.
  NewFile(const std::string& name, const std::string& path);

  NewFile(NewFile&& other) noexcept;
  NewFile& operator=(NewFile&& other) noexcept;
  ~NewFile();

  /// Keeps the file.
  void keep() { made_.reset(); }

 private:
  void removeUnlessUsed() const noexcept;
  /// Whether the created file is still at its path, is empty, and has no file beside it that
  /// belongs to a change by another process.
  bool isEmpty() const noexcept;

  std::string path_;
  std::optional<FileIdentity> made_;
};

}  // namespace vemra::desk
