#pragma once

#include <stdexcept>
#include <string>

namespace vemra::desk {

/// A store that cannot be used, or refused a change: which file, and what is wrong with it.
///
/// `what()` is the whole line for people: `goals.sqlite: is not an SQLite database`.
class StoreError : public std::runtime_error {
 public:
  StoreError(const std::string& file, const std::string& problem);
};

/// Another process holds a lock on the store, or a lock that this connection could not release
/// makes it look so.
class StoreBusy : public StoreError {
 public:
  explicit StoreBusy(const std::string& file);
};

/// The file that was opened as the store is no longer at its path, or its log is not: it has been
/// moved, removed or replaced. The change that the call was to make is not acknowledged.
class StoreMoved : public StoreError {
 public:
  using StoreError::StoreError;
};

/// The system or SQLite could not do what a call needs. The same connection may keep failing after
/// the cause is over; a new one may succeed.
class StoreFailure : public StoreError {
 public:
  using StoreError::StoreError;
};

/// The store has no goal of that id.
class UnknownGoal : public StoreError {
 public:
  UnknownGoal(const std::string& file, const std::string& goalID);
};

}  // namespace vemra::desk
