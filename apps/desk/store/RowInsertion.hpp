#pragma once

#include "apps/desk/store/Statement.hpp"

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

namespace vemra::desk {

/// Inserts rows into a table, many with one statement: SQLite then opens the table, and goes to the
/// place of its last row, once for all of them.
///
///     RowInsertion insertion(database, "groups");
///     for (…) insertion.add(goal, position, id);
///     insertion.finish();
///
/// Rows should come in the order of the table's key. Their texts must live until `finish`. A
/// failure is a `StoreError`; it may come from a later call than the row that causes it, and the
/// pending rows are dropped.
class RowInsertion {
 public:
  /// The table must outlive the object.
  RowInsertion(Database& database, std::string_view table) : database_(database), table_(table) {}
  RowInsertion(const RowInsertion&) = delete;
  RowInsertion& operator=(const RowInsertion&) = delete;
  /// Rows that were added since the last `finish` are a mistake of the caller, unless an exception
  /// is under way.
  ~RowInsertion() { assert(rows_ == 0 || std::uncaught_exceptions() > 0); }

  /// Adds a row with these values; every row has the same number of them.
  template <class... Values>
  void add(const Values&... values) {
    (values_.emplace_back(valueOf(values)), ...);
    if (++rows_ == rowsAtOnce) insert();
  }

  /// Inserts the pending rows.
  void finish();

 private:
  static constexpr std::size_t rowsAtOnce = 50;

  static SQLValue valueOf(std::string_view text) { return text; }
  static SQLValue valueOf(std::int64_t number) { return number; }
  template <class Value>
  static SQLValue valueOf(const std::optional<Value>& value) {
    if (!value) return std::monostate();
    return valueOf(*value);
  }

  void insert();
  Statement statement() const;

  Database& database_;
  std::string_view table_;
  std::vector<SQLValue> values_;   // of the pending rows
  std::size_t rows_ = 0;           // their number
  std::optional<Statement> full_;  // inserts `rowsAtOnce` rows
};

}  // namespace vemra::desk
