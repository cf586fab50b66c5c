#include "VemraPlatform/text/UTF8.hpp"
#include "apps/desk/store/Statement.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/documents/DocumentError.hpp"

#include <cstdint>

#include <sqlite3.h>

// Reads the values of a row: each has the expected type, or a `StoreError` names the row.

namespace vemra::desk {

std::string Statement::text(int column) {
  if (sqlite3_column_type(statement_.get(), column) != SQLITE_TEXT) damaged(column, "a text");
  const std::string_view bytes = bytesOf(column);
  database_->countText(bytes.size());
  if (!text::isWellFormed(bytes)) damaged(column, "a text in UTF-8");
  return std::string(bytes);
}

std::string_view Statement::bytesOf(int column) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
  if (bytes == nullptr) database_->fail(SQLITE_NOMEM);
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

std::optional<std::string> Statement::optionalText(int column) {
  const int type = sqlite3_column_type(statement_.get(), column);
  if (type == SQLITE_NULL) return std::nullopt;
  if (type != SQLITE_TEXT) damaged(column, "a text or NULL");
  return text(column);
}

std::int64_t Statement::integer(int column) {
  if (sqlite3_column_type(statement_.get(), column) != SQLITE_INTEGER) {
    damaged(column, "an integer");
  }
  return sqlite3_column_int64(statement_.get(), column);
}

std::size_t Statement::index(int column) {
  const std::int64_t value = integer(column);
  if (value < 0) damaged(column, "0 or more");
  return static_cast<std::size_t>(value);
}

void Statement::expectNull(int column) {
  if (sqlite3_column_type(statement_.get(), column) != SQLITE_NULL) damaged(column, "NULL");
}

void Statement::expectPosition(int column, std::size_t due) {
  if (integer(column) != static_cast<std::int64_t>(due)) damaged(column, std::to_string(due));
}

void Statement::damaged(int column, std::string_view expected) {
  const auto nameOf = [&](int one) {
    const char* name = sqlite3_column_name(statement_.get(), one);
    return std::string(name != nullptr ? name : "?");
  };
  std::string problem =
      std::string("is damaged: ") + (*rows_.table != '\0' ? rows_.table : "a query");
  for (int key = 0; key < rows_.keyColumns; ++key) {
    problem += (key == 0 ? " (" : ", ") + nameOf(key) + ' ' + describe(key);
  }
  if (rows_.keyColumns > 0) problem += ')';
  throw StoreError(database_->file(), problem + ": " + nameOf(column) + ": expected " +
                                          std::string(expected) + "; found " + describe(column));
}

/// A value for an error message, on one line and shortened to fit.
std::string Statement::describe(int column) {
  switch (sqlite3_column_type(statement_.get(), column)) {
    case SQLITE_NULL:
      return "NULL";
    case SQLITE_BLOB:
      return "a blob";
    case SQLITE_TEXT:
      return documents::inQuotes(bytesOf(column));
    default: {
      const auto* number = sqlite3_column_text(statement_.get(), column);
      return number != nullptr ? reinterpret_cast<const char*>(number) : "a number";
    }
  }
}

}  // namespace vemra::desk
