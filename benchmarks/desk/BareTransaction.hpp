#pragma once

#include <memory>
#include <string>

struct sqlite3;

namespace vemra::bench {

/// SQLite by itself, with the settings of a store: measures one durable transaction on this disk.
class BareTransaction {
 public:
  /// Makes a database in write-ahead mode with one table; the transaction adds a row of about a
  /// hundred bytes. Throws a `std::runtime_error`.
  static BareTransaction ofOneRow(const std::string& file);

  /// Opens a store; the transaction adds an outcome of its first goal, with the store's indexes and
  /// triggers. Throws a `std::runtime_error`.
  static BareTransaction ofAnOutcome(const std::string& store);

  /// Runs the transaction until it is on the disk; returns the time in milliseconds.
  double run() const;

 private:
  BareTransaction(const std::string& file, const std::string& preparation, std::string transaction);

  struct Close {
    void operator()(sqlite3* connection) const;
  };
  std::unique_ptr<sqlite3, Close> connection_;
  std::string transaction_;
};

}  // namespace vemra::bench
