#pragma once

#include "apps/desk/store/Database.hpp"

namespace vemra::desk {

/// A transaction: everything in its scope takes effect, or, without `commit`, nothing.
///
/// At its beginning and at its end the file must be at its path (`Database::confirmPlace`).
class Transaction {
 public:
  /// A reading transaction sees one state of the store. A writing one first waits for other
  /// writers, so that its reads are still valid when it writes.
  enum class Kind { reading, writing };

  Transaction(Database& database, Kind kind);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  /// Also throws a `StoreMoved` when the file has left its path while the change was written: the
  /// moved file may contain the change, which is not acknowledged.
  void commit();

 private:
  void rollBack() noexcept;

  Database& database_;
  bool open_ = true;
};

}  // namespace vemra::desk
