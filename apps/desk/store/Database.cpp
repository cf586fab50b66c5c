#include "apps/desk/store/Database.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "apps/desk/store/Distrust.hpp"
#include "apps/desk/store/StoreError.hpp"

#include <cstring>
#include <exception>
#include <new>

#include <sqlite3.h>

namespace vemra::desk {
namespace {

std::string problem(int code, sqlite3* connection) {
  const int systemError = connection != nullptr ? sqlite3_system_errno(connection) : 0;
  switch (code & 0xFF) {
    case SQLITE_NOTADB:
      return "is not an SQLite database";
    case SQLITE_CANTOPEN:
      return std::string("cannot be opened: ") +
             (systemError != 0 ? std::strerror(systemError) : "its folder may be read-only");
    case SQLITE_READONLY:
      return code == SQLITE_READONLY_DIRECTORY ? "cannot be changed: its folder is read-only"
                                               : "is read-only";
    case SQLITE_CORRUPT:
      return "is damaged";
    case SQLITE_FULL:
      return "cannot be changed: the disk is full";
    case SQLITE_NOMEM:
      return "needs more memory than there is";
    case SQLITE_TOOBIG:
      return "cannot hold a text as long as that";
    default:
      return std::string("failed: ") +
             (connection != nullptr ? sqlite3_errmsg(connection) : sqlite3_errstr(code));
  }
}

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

}  // namespace

void Database::Close::operator()(sqlite3* connection) const {
  sqlite3_close_v2(connection);
}

Database::Database(const std::string& file, Opening opening, Patience patience)
    : file_(file, opening), patience_(patience) {
  sqlite3* connection = nullptr;
  const int manner = file_.isAtRest() ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  const int code = sqlite3_open_v2(file_.uri().c_str(), &connection,
                                   manner | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
  connection_.reset(connection);
  if (code != SQLITE_OK) fail(code);
  sqlite3_extended_result_codes(connection, 1);
  sqlite3_busy_timeout(connection, static_cast<int>(patience.count()));
  sqlite3_create_function_v2(connection, "same_text", 2,
                             SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                             sameText, nullptr, nullptr, nullptr);
  distrustContents(connection);
  run("PRAGMA foreign_keys = ON; PRAGMA cell_size_check = ON");
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

void Database::fail(int code) {
  if ((code & 0xFF) == SQLITE_BUSY) throw StoreBusy(file());
  throw StoreError(file(), problem(code, handle()));
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
  database.run(kind == Kind::writing ? "BEGIN IMMEDIATE" : "BEGIN");
}

Transaction::~Transaction() {
  // A failure may have rolled everything back already; then there is nothing left to do.
  if (open_) sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
  database_.run("COMMIT");
  open_ = false;
}

}  // namespace vemra::desk
