#include "benchmarks/desk/BareTransaction.hpp"

#include <chrono>
#include <stdexcept>
#include <utility>

#include <sqlite3.h>

namespace vemra::bench {
namespace {

void execute(sqlite3* connection, const char* sql) {
  if (sqlite3_exec(connection, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(std::string("SQLite: ") + sqlite3_errmsg(connection));
  }
}

}  // namespace

void BareTransaction::Close::operator()(sqlite3* connection) const {
  sqlite3_close(connection);
}

BareTransaction::BareTransaction(const std::string& file, const std::string& preparation,
                                 std::string transaction)
    : transaction_("BEGIN IMMEDIATE; " + std::move(transaction) + "; COMMIT") {
  sqlite3* connection = nullptr;
  const int code = sqlite3_open(file.c_str(), &connection);
  connection_.reset(connection);
  if (code != SQLITE_OK) throw std::runtime_error("SQLite cannot open " + file);
  execute(connection, "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL");
  execute(connection, preparation.c_str());
}

BareTransaction BareTransaction::ofOneRow(const std::string& file) {
  return {file, "CREATE TABLE rows (number INTEGER PRIMARY KEY, text TEXT) STRICT",
          "INSERT INTO rows (text) VALUES (printf('%.100c', 'x'))"};
}

BareTransaction BareTransaction::ofAnOutcome(const std::string& store) {
  return {
      store, "PRAGMA foreign_keys = ON",
      "INSERT INTO outcomes VALUES (NULL, 1, hex(randomblob(16)), 'g1', 'person', 'p1', 'helped', "
      "NULL, '2026-01-01T00:00:00Z', NULL, NULL)"};
}

double BareTransaction::run() const {
  const auto start = std::chrono::steady_clock::now();
  execute(connection_.get(), transaction_.c_str());
  const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
  return time.count();
}

}  // namespace vemra::bench
