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

/// Another process keeps the store to itself.
class StoreBusy : public StoreError {
 public:
  explicit StoreBusy(const std::string& file);
};

/// The store has no goal of that id.
class UnknownGoal : public StoreError {
 public:
  UnknownGoal(const std::string& file, const std::string& goalID);
};

}  // namespace vemra::desk
