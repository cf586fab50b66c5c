#include "apps/desk/store/Transaction.hpp"

#include <new>

#include <sqlite3.h>

namespace vemra::desk {

Transaction::Transaction(Database& database, Kind kind) : database_(database) {
  database.confirmPlace();
  database.confirmOwners();
  database.run(kind == Kind::writing ? "BEGIN IMMEDIATE" : "BEGIN");
  try {
    database.confirmPlace();  // it has waited for others meanwhile
    database.startTextCount();
  } catch (...) {
    // The destructor does not run.
    rollBack();
    throw;
  }
}

Transaction::~Transaction() {
  // A failure may have rolled everything back already; then there is nothing left to do.
  if (open_) rollBack();
}

void Transaction::rollBack() noexcept {
  sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
  database_.confirmPlace();
  const int code = sqlite3_exec(database_.handle(), "COMMIT", nullptr, nullptr, nullptr);
  // Without a log, SQLite changes its lock back after it has committed. The lock goes with the
  // connection.
  const bool isCommitted =
      code == SQLITE_OK || code == SQLITE_IOERR_UNLOCK || code == SQLITE_IOERR_RDLOCK;
  if (!isCommitted) database_.fail(code);
  open_ = false;
  try {
    database_.confirmPlace();
  } catch (const std::bad_alloc&) {
    // It is committed. Only where the file is could not be asked.
  }
}

}  // namespace vemra::desk
