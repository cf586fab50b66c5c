#include "apps/desk/store/GoalStore.hpp"

#include "apps/desk/store/ForeignFile.hpp"
#include "apps/desk/store/OutcomeRows.hpp"
#include "apps/desk/store/ResultFault.hpp"
#include "apps/desk/store/ResultRows.hpp"
#include "apps/desk/store/Schema.hpp"
#include "apps/desk/store/Statement.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/store/Transaction.hpp"
#include "apps/documents/DocumentError.hpp"

#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

namespace vemra::desk {
namespace {

using enum Transaction::Kind;

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

/// A transaction on a database whose schema has been confirmed.
class Work : public Transaction {
 public:
  Work(Database& database, SchemaWatch& schema, Kind kind) : Transaction(database, kind) {
    schema.confirm(database);
  }
};

/// Throws a `StoreError` when the result has a fault.
void refuseFault(const Database& database, const GetGoalSnapshotResponse& result,
                 const std::optional<ResultFault>& fault, const std::string& refusal) {
  if (fault) {
    throw StoreError(database.file(), refusal + " the goal " + documents::inQuotes(result.goal.id) +
                                          ": " + fault->pointer + ": " + fault->problem);
  }
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
      useWriteAheadLog(store.database_);
      store.database_.accept();
      return store.import(results);
    }
    Transaction transaction(store.database_, writing);
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

std::vector<GoalListing> GoalStore::goals() {
  const Work work(database_, schema_, reading);
  Statement row(database_, "SELECT number, id, title FROM goals ORDER BY number", {"goals", 1});
  std::vector<GoalListing> goals;
  row.query();
  while (row.next()) goals.push_back({row.text(1), row.text(2)});
  database_.confirm();
  return goals;
}

bool GoalStore::hasGoal(const std::string& goalID) {
  const Work work(database_, schema_, reading);
  return find(goalID).has_value();
}

GetGoalSnapshotResponse GoalStore::result(const std::string& goalID) {
  const Work work(database_, schema_, reading);
  const std::int64_t goal = findOrThrow(goalID);
  const Database::Revision revision = database_.revision();
  if (auto kept = kept_.find(goal, revision)) {
    database_.confirm();
    return *std::move(kept);
  }
  GetGoalSnapshotResponse result = readResultRows(database_, goal);
  result.outcomes = readOutcomes(database_, goal);
  database_.confirm();
  refuseFault(database_, result, faultIn(result), "holds a result that cannot be shown, of");
  kept_.keep(goal, revision, result);
  return result;
}

SharedArray<GoalOutcomeDTO> GoalStore::outcomes(const std::string& goalID) {
  const Work work(database_, schema_, reading);
  SharedArray<GoalOutcomeDTO> outcomes = readOutcomes(database_, findOrThrow(goalID));
  database_.confirm();
  return outcomes;
}

std::vector<LeftOutOutcome> GoalStore::import(const std::vector<GetGoalSnapshotResponse>& results) {
  Work work(database_, schema_, writing);
  std::vector<LeftOutOutcome> leftOut = importWithin(results);
  work.commit();
  return leftOut;
}

std::vector<LeftOutOutcome> GoalStore::importWithin(
    const std::vector<GetGoalSnapshotResponse>& results) {
  for (const GetGoalSnapshotResponse& result : results) {
    refuseFault(database_, result, faultOfImport(result), "does not take in the result of");
  }
  std::vector<LeftOutOutcome> leftOut;
  for (std::size_t i = 0; i < results.size(); ++i) {
    std::optional<std::int64_t> goal = find(results[i].goal.id);
    if (goal) {
      replaceResult(database_, *goal, results[i]);
    } else {
      goal = addResult(database_, results[i]);
    }
    for (const std::size_t outcome : mergeOutcomes(database_, *goal, results[i].outcomes)) {
      leftOut.push_back({i, outcome});
    }
  }
  return leftOut;
}

GoalOutcomeDTO GoalStore::record(const std::string& goalID, const GoalOutcomeRecordingInput& input,
                                 const std::string& outcomeID, const std::string& recordedAt) {
  Work work(database_, schema_, writing);
  const std::int64_t goal = findOrThrow(goalID);
  const Database::Revision start = database_.revision();
  GoalOutcomeDTO outcome;
  outcome.id = outcomeID;
  outcome.goalID = idOf(goal);
  outcome.subjectKind = input.subjectKind();
  outcome.subjectRef = input.subjectRef();
  outcome.value = input.outcome();
  outcome.note = input.note();
  outcome.recordedAt = recordedAt;
  outcome.correctsOutcomeID = input.correctsOutcomeID();
  std::optional<GoalOutcomeDTO> before = recordedBefore(database_, goal, outcome);
  if (!before) OutcomeInsertion(database_).append(goal, outcome);
  const Database::Revision end = database_.revision();
  work.commit();
  if (!before) {
    kept_.addOutcome(goal, outcome, start, end);
    return outcome;
  }
  // The earlier try may have failed while SQLite wrote the outcome to the disk.
  database_.makeDurable();
  return *std::move(before);
}

PersonKnowledge GoalStore::person(const std::string& personRef) {
  const Work work(database_, schema_, reading);
  return readPersonKnowledge(database_, personRef);
}

EvidenceKnowledge GoalStore::evidence(const std::string& evidenceID) {
  const Work work(database_, schema_, reading);
  return readEvidenceKnowledge(database_, evidenceID);
}

std::vector<std::optional<std::string>> GoalStore::names(
    const std::string& goalID, const SharedArray<std::string>& personRefs) {
  const Work work(database_, schema_, reading);
  return readNames(database_, find(goalID).value_or(0), personRefs);
}

std::int64_t GoalStore::version() {
  database_.confirmPlace();
  return database_.version();
}

std::optional<std::int64_t> GoalStore::find(const std::string& goalID) {
  // The first query uses the index and finds almost every goal, by the id byte for byte.
  for (const char* sql : {"SELECT number FROM goals WHERE id = ?1",
                          "SELECT number FROM goals WHERE same_text(id, ?1) ORDER BY number"}) {
    Statement row(database_, sql, {"goals", 0});
    row.query(goalID);
    if (row.next()) return row.integer(0);
  }
  return std::nullopt;
}

std::string GoalStore::idOf(std::int64_t goal) {
  Statement row(database_, "SELECT number, id FROM goals WHERE number = ?1", {"goals", 1});
  row.query(goal);
  row.next();
  return row.text(1);
}

std::int64_t GoalStore::findOrThrow(const std::string& goalID) {
  const std::optional<std::int64_t> goal = find(goalID);
  if (!goal) throw UnknownGoal(database_.file(), goalID);
  return *goal;
}

}  // namespace vemra::desk
