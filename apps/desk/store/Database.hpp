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

/// The time that a connection waits for other processes before its call fails.
using Patience = std::chrono::milliseconds;
inline constexpr Patience usualPatience{10'000};

/// The number of bytes of text that a transaction reads before SQLite checks the whole file.
inline constexpr std::size_t uncheckedTextBytes = std::size_t{256} << 20;

/// A connection to an SQLite 3 database file, closed at the end of its scope.
///
/// It waits for other processes, but only for a limited time. Every failure, here and in the
/// statements, is a `StoreError` that names the file. Only one thread may use it at a time.
class Database {
 public:
  using Opening = DatabaseFile::Opening;

  /// Opens the file, which must be a database or empty.
  Database(const std::string& file, Opening opening, Patience patience);

  Database(Database&&) = default;
  Database& operator=(Database&&) = default;
  /// If the file has been moved meanwhile, this writes the content of its log into the file and
  /// removes the log: SQLite would apply the log to the next database at the same path.
  ~Database();

  const std::string& file() const { return file_.name(); }
  Patience patience() const { return patience_; }

  /// Runs statements that return no rows and take no values.
  void run(const char* sql);

  /// Runs a query that returns one number; 0 when it returns no row.
  std::int64_t number(const char* sql);

  /// A number that changes when another connection changes the database.
  std::int64_t version();

  /// The state of the database's content, as this connection sees it.
  struct Revision {
    std::int64_t others = 0;  ///< SQLite's `data_version`
    std::int64_t own = 0;     ///< the rows that this connection has ever changed
    friend bool operator==(const Revision&, const Revision&) = default;
  };

  /// Call it inside a transaction that has already read: the revision of all that the transaction
  /// reads. Two transactions of a connection with one revision read the same content; whichever
  /// program has changed something in between, the revisions differ.
  Revision revision();

  /// Accepts the database after it has been recognised: its file is kept, and from now on
  /// `confirmPlace` also checks its log.
  void accept();

  /// Throws a `StoreMoved` unless the file and its log are still the ones at their paths. Other
  /// programs would not find a change that is written into a file elsewhere.
  void confirmPlace();

  /// Checks again who owns the files beside the database (`checkOwners`), unless `accept` has noted
  /// a log: SQLite opens these files at its first transaction, and another user may have created
  /// one since the first check.
  void confirmOwners() const { file_.confirmOwners(); }

  /// Call it after reading: throws a `StoreError` unless all of it was one state of the file.
  void confirm() const { file_.confirm(); }

  /// A text that changes whenever any connection writes the file; none when that is unknown. Unlike
  /// `version`, it can be compared with that of an earlier connection.
  std::optional<std::string> state() const { return file_.state(); }

  /// Moves the committed changes from the log into the file and onto the disk. Call it outside of
  /// transactions.
  void makeDurable();

  /// \name The texts that a transaction reads
  ///
  /// A damaged file can claim far more text than it contains: SQLite compares the length that a row
  /// claims only with the size of the file, which may be sparse, and a chain of pages that leads
  /// back to itself has no end. A check of the whole file finds such a chain. It takes as long as
  /// reading the file, so only a transaction that reads very much text runs it.
  /// @{
  /// Call it at the beginning of a transaction: starts the count at 0.
  void startTextCount() { textsLeft_ = textBound_; }
  /// Call it before copying a text of `bytes` bytes. The first time that a transaction exceeds the
  /// limit, SQLite checks the file; a `StoreError` names the damage.
  void countText(std::size_t bytes);
  /// For tests: a limit instead of `uncheckedTextBytes`, from the next transaction on.
  void setTextBound(std::size_t bytes) { textBound_ = bytes; }
  /// @}

  /// The file that SQLite has open.
  FileIdentity identity() const { return file_.identity(); }

  /// Throws the last failure of this connection as a `StoreError`.
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
  /// After the file has moved: whether another program has opened a new file at its path and may
  /// have written into our log, which has the name of the new file's log.
  bool mayBeAnothersLog();

  DatabaseFile file_;  // declared before the connection, so that it is destroyed after it
  Patience patience_;
  std::unique_ptr<sqlite3, Close> connection_;
  std::int64_t version_ = 0;  // at the last call of `version`
  std::size_t textBound_ = uncheckedTextBytes;
  std::optional<std::size_t> textsLeft_ = textBound_;  // bytes; none after the file check
};

}  // namespace vemra::desk
