#pragma once

#include <memory>
#include <string>

struct sqlite3;

namespace vemra::bench {

/// SQLite by itself, with the settings of a store: measures one durable transaction on this disk.
class BareTransaction {
 public:
  /// Makes a database in write-ahead mode with one table. Throws a `std::runtime_error`.
  explicit BareTransaction(const std::string& file);

  /// Adds a row of about a hundred bytes and waits until it is on the disk; returns the time in
  /// milliseconds.
  double run() const;

 private:
  struct Close {
    void operator()(sqlite3* connection) const;
  };
  std::unique_ptr<sqlite3, Close> connection_;
};

}  // namespace vemra::bench
