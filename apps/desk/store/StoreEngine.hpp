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
/// Every question and every change is carried out on a thread of the engine's own, in the order in
/// which the tasks were started, and its task goes on there; whoever shows the answer moves to the
/// main thread first. Failures come out of the tasks as a `StoreError`; the next task opens the store
/// anew where that may help. A store that was open and is gone is not made again. Arguments are values and
/// answers own what they hold, so a task may outlive the caller. It may outlive the engine too.
class StoreEngine final : public GoalToolExecutor {
 public:
  /// Opens nothing yet: the first task does.
  explicit StoreEngine(std::string file, Patience patience = usualPatience);

  task::Task<GetGoalSnapshotResponse> getGoalSnapshot(std::string goalID) override;

  /// Records what the screen handed out and gives the record.
  ///
  /// - Parameter storeNumber: the store that the screen shows; when another one has taken its place
  ///   since, nothing is recorded and the task fails. Nil records in whichever store is there.
  task::Task<GoalOutcomeDTO> record(std::string goalID, GoalOutcomeRecordingInput input,
                                    std::optional<std::uint64_t> storeNumber = std::nullopt);

  task::Task<std::vector<GoalListing>> goals();
  task::Task<std::vector<LeftOutOutcome>> import(std::vector<GetGoalSnapshotResponse> results);
  task::Task<PersonKnowledge> person(std::string personRef);
  task::Task<EvidenceKnowledge> evidence(std::string evidenceID);
  task::Task<std::vector<std::optional<std::string>>> names(std::string goalID,
                                                            SharedArray<std::string> personRefs);

  /// A number that changes when another process, or another engine, changes the store, and when the
  /// store has been opened anew.
  task::Task<std::int64_t> version();

  /// Which store was opened last: a number that changes when somebody has put another file in its
  /// place. What was read while it stayed the same is of one store.
  std::uint64_t storeNumber() const;

  /// Blocks until all tasks that were started before have ended: for the end of a program, when
  /// nobody else starts any.
  void finish();

 private:
  std::shared_ptr<StoreThread> thread_;
};

}  // namespace vemra::desk
