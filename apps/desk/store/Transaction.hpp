#pragma once

#include "apps/desk/store/Database.hpp"

namespace vemra::desk {

/// A transaction: all of what happens in its scope, or, without `commit`, none of it.
///
/// At its beginning and at its end the file must be at its path (`Database::confirmPlace`).
class Transaction {
 public:
  /// A reading transaction sees one state of the store throughout. A writing one waits for other
  /// writers first, so that what it reads is still so when it writes.
  enum class Kind { reading, writing };

  Transaction(Database& database, Kind kind);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  /// Throws a `StoreMoved` also when the file has gone while the change was being written: then it
  /// may be in the file that was moved, and is not acknowledged.
  void commit();

 private:
  void rollBack() noexcept;

  Database& database_;
  bool open_ = true;
};

}  // namespace vemra::desk
