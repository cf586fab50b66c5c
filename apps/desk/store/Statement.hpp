#pragma once

#include "apps/desk/store/Database.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

struct sqlite3_stmt;

namespace vemra::desk {

/// How errors name the rows of a query: by a table and the columns that identify its rows.
struct RowsOf {
  const char* table = "";
  int keyColumns = 0;  ///< the number of key columns, which come first in the query
};

/// A value of a row that a statement writes; a text must live until the statement has run.
using SQLValue = std::variant<std::monostate, std::int64_t, std::string_view>;

/// A prepared statement.
///
/// Texts are passed byte for byte with their length, so they may contain U+0000. They are
/// well-formed UTF-8: a statement that writes refuses other texts with a `StoreError`.
class Statement {
 public:
  Statement(Database& database, std::string_view sql, RowsOf rows = {});

  /// Binds the values to ?1, ?2, … and runs the statement to its end. May be called repeatedly, also
  /// after a failure.
  template <class... Values>
  void run(const Values&... values) {
    query(values...);
    runBound();
  }

  /// The same with as many values as the statement has.
  void runWith(std::span<const SQLValue> values);

  /// Binds the values; then fetch the rows with `next`. The values must live until the last row.
  template <class... Values>
  void query(const Values&... values) {
    reset();
    bindAll(values...);
  }

  /// Goes to the next row; false after the last one.
  bool next();

  /// \name The current row, its columns counted from 0.
  ///
  /// Values are checked when they are read, because another program may have written or damaged the
  /// row. A value of another type, or a text that is not UTF-8, is a `StoreError` that names table,
  /// row and column.
  /// @{
  std::string text(int column);
  std::optional<std::string> optionalText(int column);
  std::int64_t integer(int column);
  /// A non-negative integer.
  std::size_t index(int column);
  /// Checks that the column is NULL.
  void expectNull(int column);
  /// Checks that the column has the position `due`; positions count up from 0.
  void expectPosition(int column, std::size_t due);
  /// Throws the `StoreError` for a column that breaks one of the caller's rules.
  [[noreturn]] void damaged(int column, std::string_view expected);
  /// @}

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };

  template <class... Values>
  void bindAll(const Values&... values) {
    [[maybe_unused]] int index = 0;  // there may be no value
    (bind(++index, values), ...);
  }
  void bind(int index, std::string_view text);
  void bind(int index, const std::string& text) { bind(index, std::string_view(text)); }
  void bind(int index, const std::optional<std::string>& text);
  void bind(int index, std::int64_t number);
  void check(int code);
  void runBound();
  void reset();
  std::string_view bytesOf(int column);
  std::string describe(int column);

  Database* database_;
  RowsOf rows_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

}  // namespace vemra::desk
