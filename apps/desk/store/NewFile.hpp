#pragma once

#include "apps/desk/store/FileIdentity.hpp"

#include <optional>
#include <string>

namespace vemra::desk {

/// A file that was made for a database, and is removed again at the end of the scope when nothing
/// has come into it: a store that could not be filled leaves no file behind.
///
/// Only the file that was made is removed, and only while it is empty. A process that has opened it
/// in the same instant finds its store removed and says so; it loses nothing that it acknowledged.
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
  void removeIfEmpty() const noexcept;

  std::string path_;
  std::optional<FileIdentity> made_;
};

}  // namespace vemra::desk
