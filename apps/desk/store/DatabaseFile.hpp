#pragma once

#include <string>

namespace vemra::desk {

/// The file of a database, looked at before SQLite opens it.
///
/// SQLite reads and writes a store with the help of files beside it (its log and what readers and
/// writers share), and makes them even for a reader. Where this user cannot have them made, because
/// the file or its folder is read-only, a reader takes the file *at rest* when nobody has it open:
/// alone and without locks. Whether it stayed so is asked afterwards.
class DatabaseFile {
 public:
  /// What for: to read what is there, or to write, into a file that is made when it is not there.
  enum class Opening { existing, orCreate };

  /// Makes sure that there is a file and that it can be opened so; a `StoreError` otherwise. A file
  /// that is made is readable by its owner alone.
  DatabaseFile(const std::string& name, Opening opening);

  /// As it was given.
  const std::string& name() const { return name_; }

  /// How SQLite is to open it.
  const std::string& uri() const { return uri_; }
  bool isAtRest() const { return !stateAtRest_.empty(); }

  /// Throws a `StoreError` when a file at rest has been changed since.
  void confirm() const;

 private:
  std::string name_;
  std::string path_;  // absolute and without symbolic links: where the files beside it are
  std::string uri_;
  std::string stateAtRest_;
};

}  // namespace vemra::desk
