#pragma once

#include "apps/desk/store/FileIdentity.hpp"
#include "apps/desk/store/FileOwners.hpp"
#include "apps/desk/store/NewFile.hpp"

#include <array>
#include <optional>
#include <string>

namespace vemra::desk {

/// The file of a database: what is checked before SQLite opens it, and whether it is still the file
/// at its path.
///
/// SQLite reads and writes a store with the help of files beside it (its log and what readers and
/// writers share), and makes them even for a reader. Where this user cannot have them made, because
/// the file or its folder is read-only, a reader takes the file *at rest* when nobody has it open:
/// alone and without locks. Whether it stayed so is asked afterwards.
class DatabaseFile {
 public:
  /// What for: to read what is there; to write what is there; or to write, into a file that is made
  /// when it is not there.
  enum class Opening { existing, existingToWrite, orCreate };

  /// Makes sure that there is a file, that it can be opened so and that nobody else has put
  /// something beside it (`checkOwners`); a `StoreError` otherwise. A file that is made is readable
  /// by its owner alone, and removed at the end when nothing has come into it.
  DatabaseFile(const std::string& name, Opening opening);

  /// As it was given.
  const std::string& name() const { return name_; }

  /// Absolute and without symbolic links: where the files beside it are.
  const std::string& path() const { return path_; }

  /// How SQLite is to open it.
  const std::string& uri() const { return uri_; }
  bool isAtRest() const { return !stateAtRest_.empty(); }
  bool isForWriting() const { return access_ == Access::writing; }

  /// Keeps a file that was made, whatever comes into it.
  void keep() { newFile_.keep(); }

  /// Throws a `StoreError` when a file at rest has been changed since.
  void confirm() const;

  /// \name Whether the file is still the one at its path.
  /// @{
  /// Notes which file SQLite has opened: to be called right after that.
  void noteFile();
  FileIdentity identity() const { return identity_.value_or(FileIdentity{}); }
  /// Notes which log and shared memory SQLite has opened: to be called when it has read something
  /// in write-ahead mode; they stay then as long as the connection does. Checks their owners once
  /// more, because another user may have been quicker than SQLite.
  void noteCompanions();
  /// What has happened to the file or to its companions since they were noted; nil when they are at
  /// their place.
  std::optional<std::string> displacement() const;
  /// Removes the log and the shared memory beside the path, as far as they are those noted.
  void removeCompanions() const;
  /// @}

 private:
  std::string name_;
  std::string given_;  // absolute
  std::string path_;
  std::string uri_;
  std::string stateAtRest_;
  Access access_;
  NewFile newFile_;
  std::optional<FileIdentity> identity_;
  std::array<std::optional<FileIdentity>, 2> companions_;  // the log and the shared memory
};

}  // namespace vemra::desk
