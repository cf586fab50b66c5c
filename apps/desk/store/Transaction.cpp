#include "apps/desk/store/Transaction.hpp"

#include <new>

#include <sqlite3.h>

namespace vemra::desk {

Transaction::Transaction(Database& database, Kind kind) : database_(database) {
  database.confirmPlace();
  database.confirmOwners();
  database.run(kind == Kind::writing ? "BEGIN IMMEDIATE" : "BEGIN");
  try {
    database.confirmPlace();  // it has waited for other processes meanwhile
    database.startTextCount();
  } catch (...) {
    // The destructor does not run when the constructor throws.
    rollBack();
    throw;
  }
}

Transaction::~Transaction() {
  // After a failure, SQLite may already have rolled back; then nothing is left to do.
  if (open_) rollBack();
}

void Transaction::rollBack() noexcept {
  // `ROLLBACK` takes memory too. When that fails once, the second try ends the transaction, which
  // would otherwise stand in the way of the next one.
  for (int tries = 0; tries < 2 && sqlite3_get_autocommit(database_.handle()) == 0; ++tries) {
    sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
  }
}

void Transaction::commit() {
  database_.confirmPlace();
  const int code = sqlite3_exec(database_.handle(), "COMMIT", nullptr, nullptr, nullptr);
  // Without a log, SQLite downgrades its lock after the commit; closing the connection releases the
  // lock.
  const bool isCommitted =
      code == SQLITE_OK || code == SQLITE_IOERR_UNLOCK || code == SQLITE_IOERR_RDLOCK;
  if (!isCommitted) database_.fail(code);
  open_ = false;
  try {
    database_.confirmPlace();
  } catch (const std::bad_alloc&) {
    // The change is committed; memory ran out only for the check of the file's place.
  }
}

}  // namespace vemra::desk
