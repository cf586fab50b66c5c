#include "apps/desk/store/Database.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "apps/desk/store/Distrust.hpp"
#include "apps/desk/store/FileLocks.hpp"
#include "apps/desk/store/Problem.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/documents/DocumentError.hpp"

#include <cerrno>
#include <cstring>
#include <exception>
#include <new>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

/// same_text(a, b): whether two texts are canonically equivalent; nil is the same as nothing.
///
/// SQLite calls it from C, which nothing may be thrown through: a failure becomes the statement's.
void sameText(sqlite3_context* context, int, sqlite3_value** values) noexcept {
  const auto isNil = [&](int i) { return sqlite3_value_type(values[i]) == SQLITE_NULL; };
  const auto view = [&](int i) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(values[i]));
    if (bytes == nullptr) throw std::bad_alloc();
    return std::string_view(bytes, static_cast<std::size_t>(sqlite3_value_bytes(values[i])));
  };
  try {
    const bool same = !isNil(0) && !isNil(1) && text::equal(view(0), view(1));
    sqlite3_result_int(context, same ? 1 : 0);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  } catch (...) {
    sqlite3_result_error(context, "two texts could not be compared", -1);
  }
}

/// What must not depend on how somebody has built SQLite.
///
/// - synchronous: what is acknowledged survives a loss of power, in write-ahead mode too.
/// - mmap_size: a disk that fails under a mapped file ends the process by a signal.
/// - locking_mode: others work on the same store.
constexpr const char* settings = R"sql(
PRAGMA synchronous = FULL;
PRAGMA mmap_size = 0;
PRAGMA locking_mode = NORMAL;
PRAGMA foreign_keys = ON;
PRAGMA recursive_triggers = OFF;
PRAGMA cell_size_check = ON)sql";

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
  // Where the system refuses to open a file for writing, SQLite opens it for reading and says no
  // word. Such a connection would never write again.
  if (file_.isForWriting() && sqlite3_db_readonly(connection, "main") != 0) {
    throw StoreFailure(file, std::string("cannot be opened for writing: ") +
                                 (error != 0 ? std::strerror(error) : "it is read-only"));
  }
  file_.noteFile();
  confirmPlace();
  sqlite3_extended_result_codes(connection, 1);
  sqlite3_busy_timeout(connection, static_cast<int>(patience.count()));
  sqlite3_create_function_v2(connection, "same_text", 2,
                             SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                             sameText, nullptr, nullptr, nullptr);
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
  Statement statement(*this, sql);
  statement.query();
  return statement.next() ? statement.integer(0) : 0;
}

std::int64_t Database::version() {
  return version_ = number("PRAGMA data_version");
}

void Database::accept() {
  file_.keep();
  Statement mode(*this, "PRAGMA journal_mode");
  mode.query();
  const bool hasLog = mode.next() && mode.text(0) == "wal";
  while (mode.next()) {
  }
  if (hasLog) file_.noteCompanions();
  version();
}

void Database::countText(std::size_t bytes) {
  if (!textsLeft_) return;
  if (bytes <= *textsLeft_) {
    *textsLeft_ -= bytes;
    return;
  }
  // Before the check, whose answer is a text as well.
  textsLeft_.reset();
  checkFile();
}

void Database::checkFile() {
  Statement check(*this, "PRAGMA quick_check(1)");
  check.query();
  const std::string answer = check.next() ? check.text(0) : "";
  if (answer == "ok") return;
  // A line of its own, "*** in database main ***", comes before what is wrong with a page.
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
  // The path again, as SQLite knows it: it may have opened the file just before that was replaced.
  // It takes a path that cannot be looked at for a moved file: that is asked again, and looked at.
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
    // The log stays where it is: this runs at the connection's end, which fails for nothing.
  }
}

void Database::fail(int code) {
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_PROTOCOL:  // somebody was quicker at every single try
      throw StoreBusy(file());
    case SQLITE_CONSTRAINT:
    case SQLITE_TOOBIG:
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      throw StoreError(file(), problem(code, handle()));
    case SQLITE_READONLY:
      if (code == SQLITE_READONLY_DBMOVED) confirmPlace();
      break;
    default:
      break;
  }
  throw StoreFailure(file(), problem(code, handle()));
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

Statement::Statement(Database& database, std::string_view sql, RowsOf rows)
    : database_(&database), rows_(rows) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v2(database.handle(), sql.data(), static_cast<int>(sql.size()),
                                      &statement, nullptr);
  statement_.reset(statement);
  check(code);
}

bool Statement::next() {
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) database_->fail(code);
  reset();
  return false;
}

void Statement::bind(int index, std::string_view text) {
  // A null pointer would mean NULL, which an empty text is not.
  const char* bytes = text.data() != nullptr ? text.data() : "";
  check(
      sqlite3_bind_text64(statement_.get(), index, bytes, text.size(), SQLITE_STATIC, SQLITE_UTF8));
}

void Statement::bind(int index, const std::optional<std::string>& text) {
  if (text) {
    bind(index, std::string_view(*text));
  } else {
    check(sqlite3_bind_null(statement_.get(), index));
  }
}

void Statement::bind(int index, std::int64_t number) {
  check(sqlite3_bind_int64(statement_.get(), index, number));
}

void Statement::bind(int index, const std::optional<std::int64_t>& number) {
  if (number) {
    bind(index, *number);
  } else {
    check(sqlite3_bind_null(statement_.get(), index));
  }
}

void Statement::check(int code) {
  if (code != SQLITE_OK) database_->fail(code);
}

void Statement::runBound() {
  while (next()) {
  }
}

void Statement::reset() {
  sqlite3_reset(statement_.get());
}

Transaction::Transaction(Database& database, Kind kind) : database_(database) {
  database.confirmPlace();
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
  database_.run("COMMIT");
  open_ = false;
  try {
    database_.confirmPlace();
  } catch (const std::bad_alloc&) {
    // It is committed. Only where the file is could not be asked.
  }
}

}  // namespace vemra::desk
