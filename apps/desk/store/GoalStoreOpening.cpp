#include "apps/desk/store/ForeignFile.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/Schema.hpp"
#include "apps/desk/store/Statement.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/store/Transaction.hpp"

#include <chrono>
#include <exception>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

// The ways to open a store.

namespace vemra::desk {
namespace {

/// Sets the write-ahead mode, in which readers and a writer do not wait for each other; the file
/// keeps this mode.
///
/// SQLite itself does not wait for other connections here, because it would have to upgrade a lock
/// that it already holds.
void useWriteAheadLog(Database& database) {
  const auto deadline = std::chrono::steady_clock::now() + database.patience();
  while (true) {
    try {
      Statement(database, "PRAGMA journal_mode = WAL").run();
      return;
    } catch (const StoreBusy&) {
      if (std::chrono::steady_clock::now() > deadline) throw;
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  }
}

/// Retries, because another process may remove its own new empty file just after this process has
/// opened it.
template <class Open>
auto despiteRemovals(const Open& open) {
  constexpr int tries = 3;
  for (int i = 1; i < tries; ++i) {
    try {
      return open();
    } catch (const StoreMoved&) {
    }
  }
  return open();
}

}  // namespace

GoalStore GoalStore::open(const std::string& file, Patience patience) {
  return despiteRemovals([&] {
    Database database(file, Database::Opening::orCreate, patience);
    prepareSchema(database);
    useWriteAheadLog(database);
    database.accept();
    return GoalStore(std::move(database));
  });
}

GoalStore GoalStore::reopen(const std::string& file, Patience patience) {
  if (!identityAt(file)) throw StoreMoved(file, "was moved or removed while it was open");
  Database database(file, Database::Opening::existingToWrite, patience);
  // Do not create tables here: the user may be about to copy a store into an empty file.
  if (!hasSchema(database)) throw StoreError(file, "is empty, and was a store before");
  upgradeSchema(database);
  useWriteAheadLog(database);
  database.accept();
  return GoalStore(std::move(database));
}

std::vector<LeftOutOutcome> GoalStore::importInto(
    const std::string& file, const std::vector<GetGoalSnapshotResponse>& results,
    Patience patience) {
  return despiteRemovals([&] {
    GoalStore store(Database(file, Database::Opening::orCreate, patience));
    if (hasSchema(store.database_)) {
      upgradeSchema(store.database_);
      useWriteAheadLog(store.database_);
      store.database_.accept();
      return store.import(results);
    }
    Transaction transaction(store.database_, Transaction::Kind::writing);
    prepareSchemaWithin(store.database_);
    std::vector<LeftOutOutcome> leftOut = store.importWithin(results);
    transaction.commit();
    try {
      useWriteAheadLog(store.database_);
    } catch (const std::exception&) {
      // The import has succeeded; the next program that opens the store sets the mode.
    }
    try {
      store.database_.confirmOwners();  // SQLite has just opened the log
    } catch (const ForeignFile&) {
      throw;
    } catch (const std::exception&) {
      // The import has succeeded, even if the files cannot be examined now.
    }
    return leftOut;
  });
}

std::optional<GoalStore> GoalStore::openExisting(const std::string& file) {
  std::error_code error;
  const auto path = std::filesystem::absolute(file.empty() ? "." : file, error);
  // A dangling link is an error: its store may be on a disk that is not mounted today.
  const auto status = std::filesystem::symlink_status(path, error);
  const bool missing = !file.empty() && status.type() == std::filesystem::file_type::not_found;
  if (missing && std::filesystem::is_directory(path.parent_path(), error)) return std::nullopt;
  Database database(file, Database::Opening::existing, usualPatience);
  if (!hasSchema(database)) return std::nullopt;
  database.accept();
  return GoalStore(std::move(database));
}

}  // namespace vemra::desk
