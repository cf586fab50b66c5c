#include "apps/desk/store/Statement.hpp"

#include "VemraPlatform/text/UTF8.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/documents/DocumentError.hpp"

#include <sqlite3.h>

namespace vemra::desk {

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

void Statement::runWith(std::span<const SQLValue> values) {
  reset();
  int index = 0;
  for (const SQLValue& value : values) {
    ++index;
    if (const auto* text = std::get_if<std::string_view>(&value)) {
      bind(index, *text);
    } else if (const auto* number = std::get_if<std::int64_t>(&value)) {
      bind(index, *number);
    } else {
      check(sqlite3_bind_null(statement_.get(), index));
    }
  }
  runBound();
}

bool Statement::next() {
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  if (code != SQLITE_DONE) database_->fail(code);
  reset();
  return false;
}

void Statement::bind(int index, std::string_view text) {
  if (sqlite3_stmt_readonly(statement_.get()) == 0 && !text::isWellFormed(text)) {
    throw StoreError(database_->file(),
                     "takes in texts in UTF-8 only; found " + documents::inQuotes(text));
  }
  // SQLite would bind a null pointer as NULL, which differs from an empty text.
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

}  // namespace vemra::desk
