#pragma once

#include "apps/desk/store/FileIdentity.hpp"
#include "apps/desk/store/FileOwners.hpp"
#include "apps/desk/store/NewFile.hpp"

#include <array>
#include <optional>
#include <string>

namespace vemra::desk {

/// The file of a database: checks it before SQLite opens it, and later checks whether it is still
/// the file at its path.
///
/// SQLite reads and writes a store with the help of files beside it (a log, and memory that readers
/// and writers share), and creates them even for a reader. When this user may not create them,
/// because the file or its folder is read-only, and no program has the store open, a reader reads
/// the file *at rest*: without locks and without those files. `confirm` checks afterwards that the
/// file stayed at rest.
class DatabaseFile {
 public:
  /// The purpose: reading an existing file; writing an existing file; or writing a file that is
  /// created if it does not exist.
  enum class Opening { existing, existingToWrite, orCreate };

  /// Throws a `StoreError` unless there is a file, this user may open it for the purpose, and no
  /// other user has put a file beside it (`checkOwners`). A created file is readable only by its
  /// owner, and is removed at the end if it is still empty.
  DatabaseFile(const std::string& name, Opening opening);

  /// The name as given.
  const std::string& name() const { return name_; }

  /// The absolute path without symbolic links: the files beside it are there.
  const std::string& path() const { return path_; }

  /// The URI for SQLite to open.
  const std::string& uri() const { return uri_; }
  bool isAtRest() const { return !stateAtRest_.empty(); }
  bool isForWriting() const { return access_ == Access::writing; }

  /// Keeps a file that was created here, even if it stays empty.
  void keep() { newFile_.keep(); }

  /// Throws a `StoreError` when a file at rest has been changed since it was opened.
  void confirm() const;

  /// A text that changes whenever the database or its log is written. None when that is unknown:
  /// when a file cannot be examined, or was written so recently that the next change may leave its
  /// time unchanged.
  std::optional<std::string> state() const;

  /// Checks the owners of the files beside the database again. It does nothing after
  /// `noteCompanions`, which notes an open log, and for a file at rest, which SQLite reads without
  /// those files.
  void confirmOwners() const;

  /// \name Whether the file is still the one at its path.
  /// @{
  /// Notes which file SQLite has opened; call it right after that.
  void noteFile();
  FileIdentity identity() const { return identity_.value_or(FileIdentity{}); }
  /// Notes which log and shared memory SQLite has opened. Call it after the first read in
  /// write-ahead mode; from then on they exist as long as the connection. Checks their owners once
  /// more, because another user may have created them before SQLite.
  void noteCompanions();
  /// Describes what has happened to the file, its log or its shared memory since they were noted;
  /// nil when they are still at their paths.
  std::optional<std::string> displacement() const;
  /// Removes the log and the shared memory beside the path if they are the noted ones.
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
