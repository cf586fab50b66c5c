#pragma once

#include "VemraGoalEngine/GoalToolExecutor.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/OutcomeJournal.hpp"
#include "apps/desk/store/StoreThread.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vemra::desk {

/// The store that a try to record an outcome is meant for, the one that it reached, and what a
/// screen shows then.
struct TriedStore {
  /// The number of the only store that the outcome may be recorded in.
  std::optional<std::uint64_t> wantedNumber;
  /// Without a number, the mark of that store. With neither, the store at the path is the right
  /// one.
  std::optional<std::string> wantedMark;
  /// \name Set by the task once it has opened a store; read them after its end @{
  std::optional<std::uint64_t> number;
  std::string mark;
  /// The goal's result with the recorded outcome, if the store had it at hand
  /// (`RecordedOutcome::result`). Nil after a failure.
  std::optional<GetGoalSnapshotResponse> result;
  /// @}
};

/// The goal engine of this program: it answers from a store.
///
/// The engine runs every question and every change on its own thread, in the order in which the
/// tasks were started. A task continues on that thread; a host that shows the answer must move to
/// the main thread first. Tasks throw a `StoreError` on failure; the next task opens the store
/// again where that may help. The engine never creates a new file in place of a store that it had
/// open. Arguments are values and answers own their content, so a task may outlive the caller and
/// the engine.
class StoreEngine final : public GoalToolExecutor {
 public:
  /// Does not open the store; the first task does.
  explicit StoreEngine(std::string file, Patience patience = usualPatience,
                       StoreUse use = StoreUse::readingAndWriting);

  /// With `reading`, recording and importing fail.
  StoreUse storeUse() const { return thread_->storeUse(); }
  /// The file of the store, as it was given.
  const std::string& file() const { return thread_->file(); }

  /// Answers with the outcomes that a screen needs (`GoalStore::shownResult`).
  task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string goalID) override;

  /// Answers with all outcomes (`GoalStore::result`), for an export.
  task::Task<GetGoalSnapshotResponse> wholeResult(std::string goalID);

  /// Those of these ids that the store has outcomes of the goal with (`GoalStore::storedOutcomes`).
  task::Task<std::vector<std::string>> storedOutcomes(std::string goalID,
                                                      std::vector<std::string> outcomeIDs);

  /// Records an outcome from the screen and returns the record.
  ///
  /// - Parameter storeNumber: the store that the screen shows. When another store has replaced it
  ///   meanwhile, the task records nothing and fails. With nil, the task records in the store that
  ///   is at the path.
  /// - Parameter outcomeID: the id of the record. After a failure, try again with the same id: the
  ///   outcome may have been recorded, and is then not recorded again (`GoalStore::record`).
  task::Task<GoalOutcomeDTO> record(std::string goalID, GoalOutcomeRecordingInput input,
                                    std::optional<std::uint64_t> storeNumber = std::nullopt,
                                    std::string outcomeID = newOutcomeID());

  /// Records an outcome with the id and the date that it was saved with, unless another store than
  /// the wanted one is at the path.
  task::Task<GoalOutcomeDTO> record(WaitingOutcome outcome, std::shared_ptr<TriedStore> store);

  task::Task<std::vector<GoalListing>> goals();
  task::Task<std::vector<LeftOutOutcome>> import(std::vector<GetGoalSnapshotResponse> results);
  task::Task<PersonKnowledge> person(std::string personRef);
  task::Task<EvidenceKnowledge> evidence(std::string evidenceID);
  task::Task<std::vector<std::optional<std::string>>> names(std::string goalID,
                                                            SharedArray<std::string> personRefs);

  /// A number that changes when another process, or another engine, may have changed the store. A
  /// host may ask for it repeatedly: while a store keeps failing, the task gives its last answer
  /// and opens the store only at growing intervals (`StoreThread::version`).
  task::Task<std::int64_t> version();

  /// The number of the store that was opened last; it changes when another file has replaced the
  /// store. Results that were read while it stayed the same are from one store.
  std::uint64_t storeNumber() const;

  /// A text that identifies the store that had that number, also for another program and after a
  /// restart (`fileMarkAt`); "" when it is unknown.
  std::string storeMark(std::uint64_t number) const;

  /// Blocks until all earlier tasks have ended. Call it at the end of a program, when no other
  /// thread starts tasks.
  void finish();

 private:
  std::shared_ptr<StoreThread> thread_;
};

}  // namespace vemra::desk
