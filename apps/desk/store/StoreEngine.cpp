#include "apps/desk/store/StoreEngine.hpp"

#include "VemraPlatform/task/Start.hpp"
#include "apps/desk/store/StoreError.hpp"

#include <functional>
#include <optional>
#include <utility>

namespace vemra::desk {
namespace {

/// Runs `work` in a turn of the thread.
///
/// Keeps the thread and the work alive until the work has ended, with an answer or an exception,
/// and releases both before the awaiting caller continues.
template <class Answer>
task::Task<Answer> onThread(std::shared_ptr<StoreThread> thread,
                            std::function<Answer(StoreThread&)> work) {
  std::optional<Answer> answer;
  {
    // The coroutine's parameters live until its frame is destroyed, which may be much later.
    const std::shared_ptr<StoreThread> worker = std::move(thread);
    const std::function<Answer(StoreThread&)> ownWork = std::move(work);
    auto turn = worker->turn();
    co_await turn;
    answer.emplace(ownWork(*worker));
  }
  co_return *std::move(answer);
}

/// Runs `work` with the store, in a turn of the thread.
template <class Answer>
task::Task<Answer> withStore(std::shared_ptr<StoreThread> thread,
                             std::function<Answer(GoalStore&)> work) {
  return onThread<Answer>(std::move(thread), [work = std::move(work)](StoreThread& turn) {
    return turn.use<Answer>(work);
  });
}

void refuseReading(const StoreThread& thread) {
  if (thread.storeUse() == StoreUse::reading) {
    throw StoreError(thread.file(), "is open for reading only");
  }
}

}  // namespace

StoreEngine::StoreEngine(std::string file, Patience patience, StoreUse use)
    : thread_(std::make_shared<StoreThread>(std::move(file), patience, use)) {}

task::Task<GetGoalSnapshotResponse> StoreEngine::getGoalSnapshot(std::string goalID) {
  return withStore<GetGoalSnapshotResponse>(
      thread_,
      [goalID = std::move(goalID)](GoalStore& store) { return store.shownResult(goalID); });
}

task::Task<GetGoalSnapshotResponse> StoreEngine::wholeResult(std::string goalID) {
  return withStore<GetGoalSnapshotResponse>(
      thread_, [goalID = std::move(goalID)](GoalStore& store) { return store.result(goalID); });
}

task::Task<std::vector<std::string>> StoreEngine::storedOutcomes(
    std::string goalID, std::vector<std::string> outcomeIDs) {
  return withStore<std::vector<std::string>>(
      thread_, [goalID = std::move(goalID), outcomeIDs = std::move(outcomeIDs)](GoalStore& store) {
        return store.storedOutcomes(goalID, outcomeIDs);
      });
}

task::Task<GoalOutcomeDTO> StoreEngine::record(std::string goalID, GoalOutcomeRecordingInput input,
                                               std::optional<std::uint64_t> storeNumber,
                                               std::string outcomeID) {
  return onThread<GoalOutcomeDTO>(
      thread_, [goalID = std::move(goalID), input = std::move(input), storeNumber,
                outcomeID = std::move(outcomeID)](StoreThread& thread) {
        refuseReading(thread);
        return thread.use<GoalOutcomeDTO>([&](GoalStore& store) {
          if (storeNumber && *storeNumber != thread.storeNumber()) {
            throw StoreError(thread.file(), "was replaced by another file while it was open");
          }
          return store.record(goalID, input, outcomeID);
        });
      });
}

task::Task<GoalOutcomeDTO> StoreEngine::record(WaitingOutcome outcome,
                                               std::shared_ptr<TriedStore> store) {
  return onThread<GoalOutcomeDTO>(
      thread_, [outcome = std::move(outcome), tried = std::move(store)](StoreThread& thread) {
        refuseReading(thread);
        const auto record = [&](GoalStore& open) {
          const std::uint64_t number = thread.storeNumber();
          tried->number = number;
          tried->mark = thread.storeMark(number);
          const std::optional<std::string>& mark = tried->wantedMark;
          if (tried->wantedNumber) {
            if (*tried->wantedNumber != number) {
              throw StoreError(thread.file(), "was replaced by another file while it was open");
            }
          } else if (mark && (mark->empty() || *mark != tried->mark)) {
            throw StoreError(thread.file(), "is not the store that the outcome was saved in");
          }
          RecordedOutcome recorded =
              open.recordAndShow(outcome.goalID, outcome.input, outcome.id, outcome.savedAt);
          tried->result = std::move(recorded.result);
          return std::move(recorded.record);
        };
        const bool mayEnterAny = !tried->wantedNumber && !tried->wantedMark;
        try {
          return thread.use<GoalOutcomeDTO>(record);
        } catch (const StoreMoved&) {
          if (!mayEnterAny) throw;
        }
        // The call above found out that the open store is not the one at the path, which is meant.
        return thread.use<GoalOutcomeDTO>(record);
      });
}

std::string StoreEngine::storeMark(std::uint64_t number) const {
  return thread_->storeMark(number);
}

std::uint64_t StoreEngine::storeNumber() const {
  return thread_->storeNumber();
}

task::Task<std::vector<GoalListing>> StoreEngine::goals() {
  return withStore<std::vector<GoalListing>>(thread_, &GoalStore::goals);
}

task::Task<std::vector<LeftOutOutcome>> StoreEngine::import(
    std::vector<GetGoalSnapshotResponse> results) {
  return onThread<std::vector<LeftOutOutcome>>(
      thread_, [results = std::move(results)](StoreThread& thread) {
        refuseReading(thread);
        return thread.use<std::vector<LeftOutOutcome>>(
            [&](GoalStore& store) { return store.import(results); });
      });
}

task::Task<PersonKnowledge> StoreEngine::person(std::string personRef) {
  return withStore<PersonKnowledge>(thread_, [personRef = std::move(personRef)](GoalStore& store) {
    return store.person(personRef);
  });
}

task::Task<EvidenceKnowledge> StoreEngine::evidence(std::string evidenceID) {
  return withStore<EvidenceKnowledge>(thread_,
                                      [evidenceID = std::move(evidenceID)](GoalStore& store) {
                                        return store.evidence(evidenceID);
                                      });
}

task::Task<std::vector<std::optional<std::string>>> StoreEngine::names(
    std::string goalID, SharedArray<std::string> personRefs) {
  return withStore<std::vector<std::optional<std::string>>>(
      thread_, [goalID = std::move(goalID), personRefs = std::move(personRefs)](GoalStore& store) {
        return store.names(goalID, personRefs);
      });
}

task::Task<std::int64_t> StoreEngine::version() {
  return onThread<std::int64_t>(thread_, &StoreThread::version);
}

void StoreEngine::finish() {
  try {
    task::wait(version());
  } catch (const StoreError&) {
    // Turns run in the order in which tasks start, so all earlier tasks have ended when this turn
    // comes.
  }
}

}  // namespace vemra::desk
