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
/// SQLite reads and writes a store with the help of files beside it (a log, and memory that readers
/// and writers share), and makes them even for a reader. Where this user may not make them, because
/// the file or its folder is read-only, and no program has the store open, a reader reads the file
/// *at rest*: without locks and without those files. `confirm` checks afterwards that it stayed at
/// rest.
class DatabaseFile {
 public:
  /// The purpose: to read a file that exists; to write a file that exists; or to write a file that
  /// is made when it does not exist.
  enum class Opening { existing, existingToWrite, orCreate };

  /// Makes sure that there is a file, that this user may open it for the purpose, and that no other
  /// user has put a file beside it (`checkOwners`); throws a `StoreError` otherwise. Only its owner
  /// may read a file that is made. It is removed at the end if it is still empty.
  DatabaseFile(const std::string& name, Opening opening);

  /// As it was given.
  const std::string& name() const { return name_; }

  /// Absolute and without symbolic links: where the files beside it are.
  const std::string& path() const { return path_; }

  /// How SQLite is to open it.
  const std::string& uri() const { return uri_; }
  bool isAtRest() const { return !stateAtRest_.empty(); }
  bool isForWriting() const { return access_ == Access::writing; }

  /// Keeps a file that was made here, even if it stays empty.
  void keep() { newFile_.keep(); }

  /// Throws a `StoreError` when a file at rest has been changed since.
  void confirm() const;

  /// A text that differs when the database or its log has been written since. None when that cannot
  /// be known: a file cannot be looked at, or was written so recently that its time may stay the
  /// same over the next change.
  std::optional<std::string> state() const;

  /// Checks the owners of the files beside the database again, unless SQLite has opened a log
  /// already and `noteCompanions` was called, or reads the file at rest, which it does without
  /// them.
  void confirmOwners() const;

  /// \name Whether the file is still the one at its path.
  /// @{
  /// Notes which file SQLite has opened: to be called right after that.
  void noteFile();
  FileIdentity identity() const { return identity_.value_or(FileIdentity{}); }
  /// Notes which log and shared memory SQLite has opened: to be called when it has read something
  /// in write-ahead mode; they stay then as long as the connection does. Checks their owners once
  /// more, because another user may have been quicker than SQLite.
  void noteCompanions();
  /// What has happened to the file, its log or its shared memory since they were noted; nil when
  /// they are at their paths.
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
