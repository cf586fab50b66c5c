#pragma once

#include "apps/desk/store/DatabaseFile.hpp"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

struct sqlite3;

namespace vemra::desk {

/// How long a connection waits for other processes before its call fails.
using Patience = std::chrono::milliseconds;
inline constexpr Patience usualPatience{10'000};

/// The bytes of texts that a transaction reads before SQLite checks the whole file.
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
  /// `StoreMoved` otherwise. No other program would find what is written into a file elsewhere.
  void confirmPlace();

  /// Checks once more, while no log has been noted by `accept`, who owns the files beside the
  /// database (`checkOwners`): SQLite opens them at its first transaction, and another user may
  /// have put one there since.
  void confirmOwners() const { file_.confirmOwners(); }

  /// After reading: makes sure that it was one state of the file, or throws a `StoreError`.
  void confirm() const { file_.confirm(); }

  /// A text that differs when the file has been written since, through whichever connection; none
  /// when that is unknown. Unlike `version`, it can be compared with one of an earlier
  /// connection.
  std::optional<std::string> state() const { return file_.state(); }

  /// Brings what has been committed from the log into the file and onto the disk. To be called
  /// outside of transactions.
  void makeDurable();

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
  /// After the file has moved: whether another program has opened another file at its path and may
  /// have written into our log, which has the name of that file's log.
  bool mayBeAnothersLog();

  DatabaseFile file_;  // before the connection, so that it goes after it
  Patience patience_;
  std::unique_ptr<sqlite3, Close> connection_;
  std::int64_t version_ = 0;  // when it was last asked for
  std::size_t textBound_ = uncheckedTextBytes;
  std::optional<std::size_t> textsLeft_ = textBound_;  // bytes; none once the file is checked
};

}  // namespace vemra::desk
