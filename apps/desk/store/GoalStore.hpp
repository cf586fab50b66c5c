#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "apps/desk/store/Database.hpp"
#include "apps/desk/store/Knowledge.hpp"
#include "apps/desk/store/OutcomeID.hpp"
#include "apps/desk/store/Schema.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vemra::desk {

/// A goal as it stands in a list of goals.
struct GoalListing {
  std::string id;
  std::string title;
  friend bool operator==(const GoalListing&, const GoalListing&) = default;  // byte for byte
};

/// An outcome of an imported document that says something else than the record of its id.
struct LeftOutOutcome {
  std::size_t document;  ///< which of the documents, counted from 0
  std::size_t outcome;   ///< which of its outcomes, counted from 0
};

/// What the user has: goals with their evaluated results and what was recorded for them, in one
/// SQLite file.
///
/// Several processes may work on a file at once. Each call is one transaction: it happens as a
/// whole or not at all, also when the process is killed in the middle of it. Goals are found by
/// their id under canonical equivalence; all strings are kept byte for byte.
///
/// Every call may throw a `StoreError`. When the file that was opened has been moved, removed or
/// replaced, each throws a `StoreMoved`, and nothing is acknowledged. One thread at a time; another
/// thread opens its own.
class GoalStore {
 public:
  /// Opens a store for reading and writing. A file that is not there is made, its folder is not.
  /// When another process keeps the store for longer than `patience`, calls throw a `StoreBusy`.
  static GoalStore open(const std::string& file, Patience patience = usualPatience);

  /// Opens a store again that was open before. Makes nothing: throws a `StoreMoved` when there is
  /// no file at its path, and a `StoreError` when there is one that is no store (yet).
  static GoalStore reopen(const std::string& file, Patience patience = usualPatience);

  /// Opens a store and imports into it, as `open` and `import` do. When a store is made for it and
  /// the import fails, no file is left behind.
  static std::vector<LeftOutOutcome> importInto(const std::string& file,
                                                const std::vector<GetGoalSnapshotResponse>& results,
                                                Patience patience = usualPatience);

  /// Opens a store to read from it, changing nothing; it may be read-only. None when there is no
  /// such file: nothing has been stored there yet. Its folder must be there.
  static std::optional<GoalStore> openExisting(const std::string& file);

  /// All goals, in the order in which they came.
  std::vector<GoalListing> goals();

  bool hasGoal(const std::string& goalID);

  /// A goal's current result. Throws `UnknownGoal`, and a `StoreError` that names goal and place
  /// when the result has a `ResultFault`.
  GetGoalSnapshotResponse result(const std::string& goalID);

  /// What was recorded for a goal, oldest first. Throws `UnknownGoal`.
  SharedArray<GoalOutcomeDTO> outcomes(const std::string& goalID);

  /// Stores results one after the other, all or none. One with a `ResultFault` is refused.
  ///
  /// A result of a goal that is there takes the place of the goal's; what was recorded stays, and
  /// the result's own outcomes count as recorded: those whose id the goal does not have yet are
  /// recorded behind the others.
  /// - Returns: the outcomes whose id is recorded with another content. The records stay.
  std::vector<LeftOutOutcome> import(const std::vector<GetGoalSnapshotResponse>& results);

  /// Records an outcome and gives the record. Throws `UnknownGoal`.
  ///
  /// A call that throws may have recorded the outcome all the same, for instance when the file
  /// moves while it is written. So try again with the same id: an outcome that is recorded already
  /// is not recorded again; its record is made durable and is the answer.
  /// - Parameter outcomeID: from `newOutcomeID`. When the store has another outcome of that id,
  ///   this throws a `StoreError`.
  GoalOutcomeDTO record(const std::string& goalID, const GoalOutcomeRecordingInput& input,
                        const std::string& outcomeID = newOutcomeID());

  PersonKnowledge person(const std::string& personRef);
  EvidenceKnowledge evidence(const std::string& evidenceID);

  /// For each reference the name that the store knows, if it does; a name in the goal named comes
  /// before one in another goal.
  std::vector<std::optional<std::string>> names(const std::string& goalID,
                                                const SharedArray<std::string>& personRefs);

  /// A number that changes when another connection changes the store.
  std::int64_t version();

  /// As `Database::state`.
  std::optional<std::string> state() const { return database_.state(); }

  /// Which file is open.
  FileIdentity identity() const { return database_.identity(); }

 private:
  explicit GoalStore(Database database) : database_(std::move(database)) {}

  std::vector<LeftOutOutcome> importWithin(const std::vector<GetGoalSnapshotResponse>& results);
  std::optional<std::int64_t> find(const std::string& goalID);
  std::int64_t findOrThrow(const std::string& goalID);
  std::string idOf(std::int64_t goal);

  Database database_;
  SchemaWatch schema_;
};

}  // namespace vemra::desk
