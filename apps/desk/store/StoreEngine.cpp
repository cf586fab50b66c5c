#include "apps/desk/store/StoreEngine.hpp"

#include "VemraPlatform/task/Start.hpp"
#include "apps/desk/store/StoreError.hpp"

#include <functional>
#include <optional>
#include <utility>

namespace vemra::desk {
namespace {

/// Does `work` with the open store. After a failure of the connection the next turn opens the store
/// anew. That goes for a store in use, too: a lock that this connection could not give back looks
/// like another program's.
template <class Answer>
Answer working(StoreThread& thread, GoalStore& store,
               const std::function<Answer(GoalStore&)>& work) {
  try {
    return work(store);
  } catch (const StoreMoved&) {
    thread.giveUp(StoreThread::Moved::yes);
    throw;
  } catch (const StoreFailure&) {
    thread.giveUp(StoreThread::Moved::no);
    throw;
  } catch (const StoreBusy&) {
    thread.giveUp(StoreThread::Moved::no);
    throw;
  }
}

/// Does `work` with the store, on the store's thread.
///
/// Keeps the thread and the work until the work has ended, with an answer or an exception, and
/// releases both before the awaiting caller continues.
template <class Answer>
task::Task<Answer> onThread(std::shared_ptr<StoreThread> thread,
                            std::function<Answer(GoalStore&)> work) {
  std::optional<Answer> answer;
  {
    // The arguments themselves live until the frame is destroyed, which may be much later.
    const std::shared_ptr<StoreThread> worker = std::move(thread);
    const std::function<Answer(GoalStore&)> ownWork = std::move(work);
    auto turn = worker->turn();
    GoalStore& store = co_await turn;
    answer.emplace(working(*worker, store, ownWork));
  }
  co_return *std::move(answer);
}

}  // namespace

StoreEngine::StoreEngine(std::string file, Patience patience)
    : thread_(std::make_shared<StoreThread>(std::move(file), patience)) {}

task::Task<GetGoalSnapshotResponse> StoreEngine::getGoalSnapshot(std::string goalID) {
  return onThread<GetGoalSnapshotResponse>(
      thread_, [goalID = std::move(goalID)](GoalStore& store) { return store.result(goalID); });
}

task::Task<GoalOutcomeDTO> StoreEngine::record(std::string goalID, GoalOutcomeRecordingInput input,
                                               std::optional<std::uint64_t> storeNumber) {
  return onThread<GoalOutcomeDTO>(thread_, [goalID = std::move(goalID), input = std::move(input),
                                            storeNumber, thread = thread_](GoalStore& store) {
    if (storeNumber && *storeNumber != thread->storeNumber()) {
      throw StoreError(thread->file(), "was replaced by another file while it was open");
    }
    return store.record(goalID, input);
  });
}

std::uint64_t StoreEngine::storeNumber() const {
  return thread_->storeNumber();
}

task::Task<std::vector<GoalListing>> StoreEngine::goals() {
  return onThread<std::vector<GoalListing>>(thread_, &GoalStore::goals);
}

task::Task<std::vector<LeftOutOutcome>> StoreEngine::import(
    std::vector<GetGoalSnapshotResponse> results) {
  return onThread<std::vector<LeftOutOutcome>>(
      thread_, [results = std::move(results)](GoalStore& store) { return store.import(results); });
}

task::Task<PersonKnowledge> StoreEngine::person(std::string personRef) {
  return onThread<PersonKnowledge>(thread_, [personRef = std::move(personRef)](GoalStore& store) {
    return store.person(personRef);
  });
}

task::Task<EvidenceKnowledge> StoreEngine::evidence(std::string evidenceID) {
  return onThread<EvidenceKnowledge>(thread_,
                                     [evidenceID = std::move(evidenceID)](GoalStore& store) {
                                       return store.evidence(evidenceID);
                                     });
}

task::Task<std::vector<std::optional<std::string>>> StoreEngine::names(
    std::string goalID, SharedArray<std::string> personRefs) {
  return onThread<std::vector<std::optional<std::string>>>(
      thread_, [goalID = std::move(goalID), personRefs = std::move(personRefs)](GoalStore& store) {
        return store.names(goalID, personRefs);
      });
}

task::Task<std::int64_t> StoreEngine::version() {
  return onThread<std::int64_t>(thread_, [thread = thread_](GoalStore& store) {
    // SQLite counts in 32 bits, from the opening.
    return (thread->openings() << 32) + store.version();
  });
}

void StoreEngine::finish() {
  try {
    task::wait(version());
  } catch (const StoreError&) {
    // Turns come in order, so this one has come and with it the end of the others.
  }
}

}  // namespace vemra::desk
