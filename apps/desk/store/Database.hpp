#pragma once

#include "apps/desk/store/DatabaseFile.hpp"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace vemra::desk {

/// How long one waits for other processes before one gives up.
using Patience = std::chrono::milliseconds;
inline constexpr Patience usualPatience{10'000};

/// So many bytes of texts are read in one transaction before SQLite checks the whole file.
inline constexpr std::size_t uncheckedTextBytes = std::size_t{256} << 20;

/// A connection to an SQLite 3 database file, closed at the end of its scope.
///
/// Waits for other processes, but not for ever. Every failure, here and in the statements, is a
/// `StoreError` that names the file. To be used by one thread at a time.
class Database {
 public:
  using Opening = DatabaseFile::Opening;

  /// Opens the file, which must be a database, or empty.
  Database(const std::string& file, Opening opening, Patience patience);

  Database(Database&&) = default;
  Database& operator=(Database&&) = default;
  /// When the file has been moved away meanwhile, brings into it what stands in its log only, and
  /// removes that log: SQLite would take it into the next database at the same path.
  ~Database();

  const std::string& file() const { return file_.name(); }
  Patience patience() const { return patience_; }

  /// Runs statements that give no rows and take no values.
  void run(const char* sql);

  /// The one number that a query gives.
  std::int64_t number(const char* sql);

  /// A number that changes when another connection changes the database.
  std::int64_t version();

  /// To be called when the database has turned out to be the right one: its file stays, and from
  /// now on `confirmPlace` looks after its log as well.
  void accept();

  /// Makes sure that the file is still the one at its path, with the same log; throws a
  /// `StoreMoved` otherwise. What is written into another file is lost to everybody else.
  void confirmPlace();

  /// After reading: makes sure that it was one state of the file, or throws a `StoreError`.
  void confirm() const { file_.confirm(); }

  /// \name The texts that a transaction reads
  ///
  /// A damaged file can claim far more text than it holds: SQLite compares the length that a row
  /// claims with the size of the file only, which may be sparse, and a chain of pages that leads
  /// back to itself has no end. A check of the whole file finds such a chain. It takes as long as
  /// reading the file, so only a transaction that reads very much waits for it.
  /// @{
  /// To be called at the beginning of a transaction: counts from 0 again.
  void startTextCount() { textsLeft_ = textBound_; }
  /// To be called before a text of so many bytes is copied. The first time that a transaction goes
  /// beyond the bound, SQLite checks the file; a `StoreError` names what it finds.
  void countText(std::size_t bytes);
  /// For tests: a bound in place of `uncheckedTextBytes`, from the next transaction on.
  void setTextBound(std::size_t bytes) { textBound_ = bytes; }
  /// @}

  /// Which file SQLite has open.
  FileIdentity identity() const { return file_.identity(); }

  /// The last failure of this connection as a `StoreError`.
  [[noreturn]] void fail(int code);

  sqlite3* handle() { return connection_.get(); }

 private:
  struct Close {
    void operator()(sqlite3* connection) const;
  };

  std::optional<std::string> displacement();
  bool hasMoved();
  void checkFile();
  void settleLog();
  /// After the file has moved: whether somebody has opened another file at its path and may have
  /// written into our log, which has the name of theirs.
  bool mayBeAnothersLog();

  DatabaseFile file_;
  Patience patience_;
  std::unique_ptr<sqlite3, Close> connection_;
  std::int64_t version_ = 0;  // when it was last asked for
  std::size_t textBound_ = uncheckedTextBytes;
  std::optional<std::size_t> textsLeft_ = textBound_;  // bytes; none once the file is checked
};

/// How errors name the rows of a query: by a table and the columns that tell its rows apart.
struct RowsOf {
  const char* table = "";
  int keyColumns = 0;  ///< the query gives the key first, in so many columns
};

/// A prepared statement.
///
/// Texts go in and come out byte for byte: with their length, so that U+0000 may stand in them.
class Statement {
 public:
  Statement(Database& database, std::string_view sql, RowsOf rows = {});

  /// Binds the values to ?1, ?2, … and runs the statement to its end. It can be run again.
  template <class... Values>
  void run(const Values&... values) {
    bindAll(values...);
    runBound();
  }

  /// Binds the values; the rows are then fetched with `next`. The values must live until the last.
  template <class... Values>
  void query(const Values&... values) {
    reset();
    bindAll(values...);
  }

  /// Goes to the next row; false behind the last one.
  bool next();

  /// \name The current row, its columns counted from 0.
  ///
  /// Values are checked as they are read: another program may have written the row, or damaged it.
  /// One of another type is a `StoreError` that names table, row and column.
  /// @{
  std::string text(int column);
  std::optional<std::string> optionalText(int column);
  std::int64_t integer(int column);
  /// A non-negative integer.
  std::size_t index(int column);
  /// Makes sure that the column is NULL.
  void expectNull(int column);
  /// Makes sure that the column has the position that is due, where positions count up from 0.
  void expectPosition(int column, std::size_t due);
  /// Throws the `StoreError` for a column that breaks a rule of its own.
  [[noreturn]] void damaged(int column, std::string_view expected);
  /// @}

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };

  template <class... Values>
  void bindAll(const Values&... values) {
    int index = 0;
    (bind(++index, values), ...);
  }
  void bind(int index, std::string_view text);
  void bind(int index, const std::string& text) { bind(index, std::string_view(text)); }
  void bind(int index, const std::optional<std::string>& text);
  void bind(int index, std::int64_t number);
  void bind(int index, const std::optional<std::int64_t>& number);
  void check(int code);
  void runBound();
  void reset();
  std::string describe(int column);

  Database* database_;
  RowsOf rows_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// A transaction: all of what happens in its scope, or, without `commit`, none of it.
///
/// At its beginning and at its end the file must be at its path (`Database::confirmPlace`).
class Transaction {
 public:
  /// A reading one sees one state of the store throughout. A writing one waits for other writers
  /// first, so that what it reads is still so when it writes.
  enum class Kind { reading, writing };

  Transaction(Database& database, Kind kind);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  /// Throws a `StoreMoved` also when the file has gone while the change was being written: then it
  /// may be in the file that was moved, and is not acknowledged.
  void commit();

 private:
  void rollBack() noexcept;

  Database& database_;
  bool open_ = true;
};

}  // namespace vemra::desk
