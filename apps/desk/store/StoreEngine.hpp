#pragma once

#include "VemraGoalEngine/GoalToolExecutor.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreThread.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vemra::desk {

/// The goal engine of this program: answers from a store.
///
/// The engine carries out every question and every change on a thread of its own, in the order in
/// which the tasks were started. A task continues on that thread; a host that shows the answer
/// moves to the main thread first. Failures come out of the tasks as a `StoreError`; the next task
/// opens the store anew where that may help. The engine never makes a new file in place of a store
/// that it had open. Arguments are values and answers own their content, so a task may outlive the
/// caller and the engine.
class StoreEngine final : public GoalToolExecutor {
 public:
  /// Opens nothing yet: the first task does.
  explicit StoreEngine(std::string file, Patience patience = usualPatience);

  task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string goalID) override;

  /// Records what the screen handed out and gives the record.
  ///
  /// - Parameter storeNumber: the store that the screen shows; when another store has taken its
  ///   place since, nothing is recorded and the task fails. Nil records in the store that is at the
  ///   path.
  /// - Parameter outcomeID: the id of the record. After a failure, try again with the same one: the
  ///   outcome may be recorded all the same, and is then not recorded again (`GoalStore::record`).
  task::Task<GoalOutcomeDTO> record(std::string goalID, GoalOutcomeRecordingInput input,
                                    std::optional<std::uint64_t> storeNumber = std::nullopt,
                                    std::string outcomeID = newOutcomeID());

  task::Task<std::vector<GoalListing>> goals();
  task::Task<std::vector<LeftOutOutcome>> import(std::vector<GetGoalSnapshotResponse> results);
  task::Task<PersonKnowledge> person(std::string personRef);
  task::Task<EvidenceKnowledge> evidence(std::string evidenceID);
  task::Task<std::vector<std::optional<std::string>>> names(std::string goalID,
                                                            SharedArray<std::string> personRefs);

  /// A number that changes when another process, or another engine, may have changed the store.
  /// Meant to be asked for again and again: while a store keeps failing, the task answers as the
  /// last time and opens the store at growing intervals only (`StoreThread::version`).
  task::Task<std::int64_t> version();

  /// Which store was opened last: a number that changes when another file has taken its place.
  /// Everything that was read while it stayed the same is of one store.
  std::uint64_t storeNumber() const;

  /// Blocks until all tasks that were started before have ended: for the end of a program, when no
  /// other thread starts any.
  void finish();

 private:
  std::shared_ptr<StoreThread> thread_;
};

}  // namespace vemra::desk
