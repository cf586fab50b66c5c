#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "apps/desk/store/Database.hpp"
#include "apps/desk/store/GoalListing.hpp"
#include "apps/desk/store/KeptResult.hpp"
#include "apps/desk/store/Knowledge.hpp"
#include "apps/desk/store/Now.hpp"
#include "apps/desk/store/OutcomeID.hpp"
#include "apps/desk/store/Schema.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vemra::desk {

/// An outcome of an imported document that differs from the record with the same id.
struct LeftOutOutcome {
  std::size_t document;  ///< the index of the document, from 0
  std::size_t outcome;   ///< the index among the document's outcomes, from 0
};

/// What `GoalStore::recordAndShow` has recorded.
struct RecordedOutcome {
  GoalOutcomeDTO record;
  /// The goal's result right after the record, as `shownResult` would read it. Nil when the store
  /// would have to read rows for it.
  std::optional<GetGoalSnapshotResponse> result;
};

/// The user's data in one SQLite file: goals with their evaluated results, and the outcomes
/// recorded for them.
///
/// Several processes may use a file at once. Each call is one transaction: it takes effect
/// completely or not at all, also when the process is killed during the call. Goals are found by
/// their id under canonical equivalence; all strings are kept byte for byte.
///
/// Every call may throw a `StoreError`. After the open file has been moved, removed or replaced,
/// every call throws a `StoreMoved`, and no change is acknowledged. Use an object from one thread;
/// other threads open their own.
class GoalStore {
 public:
  /// Opens a store for reading and writing. Creates the file if it is missing, but not its folder.
  /// When another process locks the store for longer than `patience`, calls throw a `StoreBusy`.
  static GoalStore open(const std::string& file, Patience patience = usualPatience);

  /// Opens a store again that was open before. Creates nothing: throws a `StoreMoved` when there is
  /// no file at its path, and a `StoreError` when the file there is not a store (yet).
  static GoalStore reopen(const std::string& file, Patience patience = usualPatience);

  /// Opens a store and imports into it, like `open` and `import`. When this creates the store and
  /// the import fails, no file is left.
  static std::vector<LeftOutOutcome> importInto(const std::string& file,
                                                const std::vector<GetGoalSnapshotResponse>& results,
                                                Patience patience = usualPatience);

  /// Opens a store for reading, without changing anything; the file may be read-only. None when the
  /// file does not exist, because nothing has been stored yet. Its folder must exist.
  static std::optional<GoalStore> openExisting(const std::string& file);

  /// All goals, in the order in which they were added.
  std::vector<GoalListing> goals();

  bool hasGoal(const std::string& goalID);

  /// The current result of a goal, with all its outcomes. Throws `UnknownGoal`. Throws a
  /// `StoreError` that names the goal and the place when the result has a `ResultFault`.
  GetGoalSnapshotResponse result(const std::string& goalID);

  /// The current result of a goal, with the outcomes that a screen of it needs (`ShownOutcomes`);
  /// otherwise as `result`. Its outcomes in force are those of the whole result.
  ///
  /// Its lists share the storage of the last result of that goal, while nothing but recorded
  /// outcomes has been added to the goal: whichever program has recorded them, and whatever has
  /// changed in other goals, the call then reads these outcomes alone.
  GetGoalSnapshotResponse shownResult(const std::string& goalID);

  /// The outcomes recorded for a goal, oldest first. Throws `UnknownGoal`.
  SharedArray<GoalOutcomeDTO> outcomes(const std::string& goalID);

  /// Those of these ids that recorded outcomes of the goal have, in their order; none for an unknown
  /// goal. Reads no other outcome.
  std::vector<std::string> storedOutcomes(const std::string& goalID,
                                          const std::vector<std::string>& outcomeIDs);

  /// Stores results one after the other, all or none. Refuses a result with a `ResultFault`.
  ///
  /// A result of a known goal replaces the goal's result. The recorded outcomes stay, and the
  /// result's own outcomes are recorded after them, except those whose id the goal already has.
  /// - Returns: the outcomes whose id is already recorded with other content. The records stay.
  std::vector<LeftOutOutcome> import(const std::vector<GetGoalSnapshotResponse>& results);

  /// Records an outcome and returns the record. Throws `UnknownGoal`.
  ///
  /// A call that throws may still have recorded the outcome, for instance when the file moves while
  /// it is written. So try again with the same id: an outcome that is already recorded is not
  /// recorded again; the call makes its record durable and returns it.
  /// - Parameter outcomeID: from `newOutcomeID`. When the store has a different outcome with that
  ///   id, this throws a `StoreError`.
  /// - Parameter recordedAt: the date of the record; a record of an earlier try keeps its date.
  GoalOutcomeDTO record(const std::string& goalID, const GoalOutcomeRecordingInput& input,
                        const std::string& outcomeID = newOutcomeID(),
                        const std::string& recordedAt = now());

  /// Records an outcome like `record`, and returns the goal's result with it where that takes no
  /// reading: a screen of the goal can then show the outcome at once.
  RecordedOutcome recordAndShow(const std::string& goalID, const GoalOutcomeRecordingInput& input,
                                const std::string& outcomeID, const std::string& recordedAt);

  PersonKnowledge person(const std::string& personRef);
  EvidenceKnowledge evidence(const std::string& evidenceID);

  /// For each reference the name that the store knows, if any; a name in the given goal takes
  /// precedence over names in other goals.
  std::vector<std::optional<std::string>> names(const std::string& goalID,
                                                const SharedArray<std::string>& personRefs);

  /// A number that changes when another connection changes the store.
  std::int64_t version();

  /// See `Database::state`.
  std::optional<std::string> state() const { return database_.state(); }

  /// The open file.
  FileIdentity identity() const { return database_.identity(); }

 private:
  explicit GoalStore(Database database) : database_(std::move(database)) {}

  std::vector<LeftOutOutcome> importWithin(const std::vector<GetGoalSnapshotResponse>& results);
  std::optional<std::int64_t> find(const std::string& goalID);
  std::int64_t findOrThrow(const std::string& goalID);
  std::string idOf(std::int64_t goal);
  GetGoalSnapshotResponse readShown(std::int64_t goal);
  std::optional<ResultStamp> stampOf(std::int64_t goal);

  Database database_;
  SchemaWatch schema_;
  KeptResult kept_;
};

}  // namespace vemra::desk
