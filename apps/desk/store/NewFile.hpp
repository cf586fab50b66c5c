#pragma once

#include "apps/desk/store/FileIdentity.hpp"

#include <optional>
#include <string>

namespace vemra::desk {

/// A file that was made for a database, and is removed again at the end of the scope when nothing
/// has come into it: a store that could not be filled leaves no file behind.
///
/// Only the file that was made is removed, and only while it is empty. Another process may write it
/// between the look at its size and its removal; so a connection to it removes it under SQLite's
/// exclusive lock. A process that waits for that lock finds the file removed before it acknowledges
/// anything. At the end of the scope the file is removed without a lock: that is for a file that
/// SQLite could not open or lock.
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

  /// Whether the file that was made is at its path, empty, and without anything beside it that
  /// belongs to a change by another process.
  bool isEmpty() const noexcept;

  /// Removes the file if it is empty, and else leaves it where it is for good. To be called by a
  /// connection with an exclusive lock on it.
  void removeUnderLock() noexcept;

 private:
  bool isFileEmpty() const;
  std::string path_;
  std::optional<FileIdentity> made_;
};

}  // namespace vemra::desk
