#pragma once

#include <stdexcept>
#include <string>

namespace vemra::desk {

/// A store that cannot be used, or that refused a change: names the file and the problem.
///
/// `what()` is a complete line for people: `goals.sqlite: is not an SQLite database`.
class StoreError : public std::runtime_error {
 public:
  StoreError(const std::string& file, const std::string& problem);
};

/// Another process holds a lock on the store; or it seems so, because this connection could not
/// release a lock of its own.
class StoreBusy : public StoreError {
 public:
  explicit StoreBusy(const std::string& file);
};

/// The file that was opened as the store, or its log, is no longer at its path: it has been moved,
/// removed or replaced. The change of the failed call is not acknowledged.
class StoreMoved : public StoreError {
 public:
  using StoreError::StoreError;
};

/// The system or SQLite could not do what a call needs. The same connection may keep failing after
/// the cause has gone; a new connection may succeed.
class StoreFailure : public StoreError {
 public:
  using StoreError::StoreError;
};

/// The store has no goal with that id.
class UnknownGoal : public StoreError {
 public:
  UnknownGoal(const std::string& file, const std::string& goalID);
};

}  // namespace vemra::desk
