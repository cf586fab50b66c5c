#include "apps/desk/store/Database.hpp"

#include "apps/desk/store/Distrust.hpp"
#include "apps/desk/store/FileLocks.hpp"
#include "apps/desk/store/Problem.hpp"
#include "apps/desk/store/SameText.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/documents/DocumentError.hpp"

#include <cerrno>
#include <cstring>
#include <exception>
#include <string_view>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

/// Settings that must not depend on the build of SQLite.
///
/// - synchronous: a power cut loses no acknowledged change, in write-ahead mode too.
/// - mmap_size: a failing disk under a mapped file would end the process by a signal.
/// - locking_mode: other processes use the same store.
constexpr const char* settings = R"sql(
PRAGMA synchronous = FULL;
PRAGMA mmap_size = 0;
PRAGMA locking_mode = NORMAL;
PRAGMA foreign_keys = ON;
PRAGMA recursive_triggers = OFF;
PRAGMA cell_size_check = ON)sql";

/// The first value of a query.
struct Value {
  std::int64_t number = 0;
  std::string text;  ///< "" unless the value is a text
};

/// Runs a query of the connection itself. `Statement` builds on `Database`, so this calls SQLite.
Value firstValue(Database& database, const char* sql) {
  sqlite3_stmt* prepared = nullptr;
  const int code = sqlite3_prepare_v2(database.handle(), sql, -1, &prepared, nullptr);
  const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> statement(prepared, sqlite3_finalize);
  if (code != SQLITE_OK) database.fail(code);
  const int step = sqlite3_step(prepared);
  if (step == SQLITE_DONE) return {};
  if (step != SQLITE_ROW) database.fail(step);
  if (sqlite3_column_type(prepared, 0) != SQLITE_TEXT) {
    return {sqlite3_column_int64(prepared, 0), {}};
  }
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(prepared, 0));
  if (bytes == nullptr) database.fail(SQLITE_NOMEM);
  return {0, {bytes, static_cast<std::size_t>(sqlite3_column_bytes(prepared, 0))}};
}

}  // namespace

void Database::Close::operator()(sqlite3* connection) const {
  sqlite3_close_v2(connection);
}

Database::Database(const std::string& file, Opening opening, Patience patience)
    : file_(file, opening), patience_(patience) {
  sqlite3* connection = nullptr;
  const int manner = file_.isAtRest() ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  errno = 0;
  const int code = sqlite3_open_v2(file_.uri().c_str(), &connection,
                                   manner | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
  const int error = errno;
  connection_.reset(connection);
  if (code != SQLITE_OK) fail(connection != nullptr ? sqlite3_extended_errcode(connection) : code);
  // When the system refuses to open a file for writing, SQLite silently opens it for reading. Such
  // a connection could never write.
  if (file_.isForWriting() && sqlite3_db_readonly(connection, "main") != 0) {
    throw StoreFailure(file, std::string("cannot be opened for writing: ") +
                                 (error != 0 ? std::strerror(error) : "it is read-only"));
  }
  file_.noteFile();
  confirmPlace();
  sqlite3_extended_result_codes(connection, 1);
  sqlite3_busy_timeout(connection, static_cast<int>(patience.count()));
  addSameText(connection);
  distrustContents(connection);
  run(settings);
}

Database::~Database() {
  if (connection_) settleLog();
}

void Database::run(const char* sql) {
  const int code = sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) fail(code);
}

std::int64_t Database::number(const char* sql) {
  return firstValue(*this, sql).number;
}

std::int64_t Database::version() {
  return version_ = number("PRAGMA data_version");
}

Database::Revision Database::revision() {
  // Changes that were rolled back count too; then the revision differs although the content does
  // not.
  return {number("PRAGMA data_version"), sqlite3_total_changes64(handle())};
}

void Database::accept() {
  file_.keep();
  if (firstValue(*this, "PRAGMA journal_mode").text == "wal") file_.noteCompanions();
  version();
}

void Database::makeDurable() {
  const int code =
      sqlite3_wal_checkpoint_v2(handle(), "main", SQLITE_CHECKPOINT_FULL, nullptr, nullptr);
  if (code != SQLITE_OK) fail(code);
}

void Database::countText(std::size_t bytes) {
  if (!textsLeft_) return;
  if (bytes <= *textsLeft_) {
    *textsLeft_ -= bytes;
    return;
  }
  textsLeft_.reset();
  checkFile();
}

void Database::checkFile() {
  const std::string answer = firstValue(*this, "PRAGMA quick_check(1)").text;
  if (answer == "ok") return;
  // A heading line, "*** in database main ***", precedes the description of a damaged page.
  const std::size_t heading = answer.starts_with("***") ? answer.find('\n') + 1 : 0;
  throw StoreError(file(), "is damaged: SQLite found " +
                               documents::inQuotes(std::string_view(answer).substr(heading)));
}

bool Database::hasMoved() {
  int moved = 0;
  sqlite3_file_control(handle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  return moved != 0;
}

std::optional<std::string> Database::displacement() {
  if (auto displacement = file_.displacement()) return displacement;
  // Check the path as SQLite knows it, because the file may have been replaced right after SQLite
  // opened it. SQLite also reports a path that cannot be examined as a moved file, so ask twice and
  // examine the path.
  if (hasMoved() && hasMoved() && identityAt(file_.path())) {
    return "was replaced by another file while it was open";
  }
  return std::nullopt;
}

void Database::confirmPlace() {
  if (const auto displacement = this->displacement()) throw StoreMoved(file(), *displacement);
}

bool Database::mayBeAnothersLog() {
  const std::optional<FileIdentity> successor = identityAt(file_.path());
  if (!successor) return false;
  const auto holders = lockHolders(*successor, identity());
  if (holders && holders->empty()) return false;
  const std::int64_t before = version_;
  return version() != before;
}

void Database::settleLog() {
  if (file_.isAtRest() || identityAt(file_.path()) == file_.identity()) return;
  try {
    if (mayBeAnothersLog()) return;
    const int code =
        sqlite3_wal_checkpoint_v2(handle(), "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    if (code == SQLITE_OK) file_.removeCompanions();
  } catch (const std::exception&) {
    // The log stays: this runs when the connection closes, which must not fail.
  }
}

void Database::fail(int code) {
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_PROTOCOL:  // another program got the lock first at every try
      throw StoreBusy(file());
    case SQLITE_READONLY:
      if (code == SQLITE_READONLY_DBMOVED) confirmPlace();
      break;
    default:
      break;
  }
  const Problem problem = problemOf(code, handle());
  if (problem.isOfContent) throw StoreError(file(), problem.text);
  throw StoreFailure(file(), problem.text);
}

}  // namespace vemra::desk
