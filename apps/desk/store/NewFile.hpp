#pragma once

#include "apps/desk/store/FileIdentity.hpp"

#include <optional>
#include <string>

namespace vemra::desk {

/// A file that was made for a database, and is removed again at the end of the scope when nothing
/// has come into it: a store that could not be filled leaves no file behind.
///
/// Only the file that was made is removed, only while it is empty, and only under an exclusive lock
/// like those of SQLite. Another process that uses the file has locked it: then the file stays. One
/// that waits for the lock finds the file removed before it acknowledges anything. A file that cannot
/// be locked stays too: an empty file is a store without goals.
///
/// To be destroyed after the connection to the file.
class NewFile {
 public:
  NewFile() = default;

  /// Makes a file that is readable by its owner alone. Where there is one already, this makes
  /// nothing and removes nothing later.
  ///
  /// - Parameter name: what a `StoreError` calls the file when it cannot be made.
  /// - Parameter path: the same file as an absolute path.
  NewFile(const std::string& name, const std::string& path);

  NewFile(NewFile&& other) noexcept;
  NewFile& operator=(NewFile&& other) noexcept;
  ~NewFile();

  /// Leaves the file where it is.
  void keep() { made_.reset(); }

 private:
  void removeUnlessUsed() const noexcept;
  /// Whether the file that was made is at its path, empty, and without anything beside it that
  /// belongs to a change by another process.
  bool isEmpty() const noexcept;

  std::string path_;
  std::optional<FileIdentity> made_;
};

}  // namespace vemra::desk
