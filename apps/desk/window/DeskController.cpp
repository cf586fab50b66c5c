#include "apps/desk/window/DeskController.hpp"

#include "VemraGoalSurface/model/GoalResultProjectionReader.hpp"
#include "VemraPlatform/text/Equality.hpp"
#include "VemraQt/StartOnMainThread.hpp"
#include "apps/desk/store/SampleGoals.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/Reasons.hpp"
#include "apps/desk/window/SubjectName.hpp"

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>

#include <QTimer>

namespace vemra::desk {
namespace {

constexpr int millisecondsBetweenLooks = 400;

QString loadingGoals() {
  return localized("The goals could not be loaded.");
}

QString loadingGoal() {
  return localized("The goal could not be loaded.");
}

/// The reason why a task failed; "" for one that succeeded.
template <class T>
QString failureOf(const task::Result<T>& result) {
  if (result.hasValue()) return {};
  try {
    std::rethrow_exception(result.exception());
  } catch (const std::exception& error) {
    return reasonOf(error);
  } catch (...) {
    return localized("an unknown failure");
  }
}

/// The journal of the store; none for one that is open for reading only.
std::optional<OutcomeJournal> journalOf(const StoreEngine& engine) {
  if (engine.storeUse() == StoreUse::reading) return std::nullopt;
  // The main thread waits; if another program keeps the lock for longer, the call is tried again
  // later.
  return OutcomeJournal(engine.file(), std::chrono::milliseconds(200));
}

}  // namespace

DeskController::DeskController(std::shared_ptr<StoreEngine> engine, DeskDisplay& display)
    : engine_(std::move(engine)), display_(display), waiting_(engine_, journalOf(*engine_)) {
  connect(&waiting_, &WaitingOutcomes::changed, this, &DeskController::showWaiting);
  connect(&waiting_, &WaitingOutcomes::recorded, this,
          [this](const std::string& id, const TriedStore& tried) {
            ownOutcomes_.emplace(id, true);
            display_.noteStored(id);
            showRecorded(tried);
            if (refreshDetails_) refreshDetails_();
          });
  connect(&waiting_, &WaitingOutcomes::settledElsewhere, this, &DeskController::announceStored);
  connect(&waiting_, &WaitingOutcomes::journalFailed, this, [this](const QString& reason) {
    display_.showNotice(
        localized("Outcomes of an earlier time may wait in a journal that cannot be used.") + ' ' +
            reason,
        nullptr);
  });
}

void DeskController::start(std::optional<std::string> goalID,
                           std::optional<std::string> preferred) {
  goalID_ = std::move(goalID);
  preferred_ = std::move(preferred);
  auto* timer = new QTimer(this);
  connect(timer, &QTimer::timeout, this, &DeskController::lookForChanges);
  timer->start(millisecondsBetweenLooks);
  lookForChanges();  // before the first load, so that no change falls in between
  loadGoals();
  waiting_.start();
}

void DeskController::loadGoals() {
  qt::startOnMainThread(*this, engine_->goals(),
                        [this](auto result) { takeGoals(std::move(result)); });
}

void DeskController::takeGoals(task::Result<std::vector<GoalListing>> result) {
  if (const QString failure = failureOf(result); !failure.isEmpty()) {
    showLoadingFailure(loadingGoals(), failure, [this] { loadGoals(); });
    return;
  }
  shownBefore_.remove(loadingGoals());
  const std::vector<GoalListing> before = std::exchange(goals_, std::move(result).take());
  if (!goalID_ && !goals_.empty()) {
    const auto preferred = std::ranges::find_if(goals_, [&](const GoalListing& goal) {
      return preferred_ && text::equal(goal.id, *preferred_);
    });
    goalID_ = preferred == goals_.end() ? goals_.front().id : preferred->id;
  }
  display_.showGoals(goals_, goalID_.value_or(""));
  if (std::exchange(hasNewGoals_, false) && display_.isHeard()) {
    announce(newsOf(before, goals_));
  }
  if (goalID_) loadGoal();
}

void DeskController::openGoal(const std::string& goalID) {
  if (goalID_ && text::equal(*goalID_, goalID)) return;
  goalID_ = goalID;
  shownBefore_.remove(loadingGoal());
  closeDetails();
  loadGoal();
}

void DeskController::loadGoal() {
  const std::string goalID = *goalID_;
  const std::uint64_t store = engine_->storeNumber();
  qt::startOnMainThread(*this, GoalResultProjectionReader::makeSnapshot(engine_, goalID),
                        [this, goalID, store](auto result) {
                          if (engine_->storeNumber() == store) {
                            takeGoal(goalID, store, std::move(result));
                          } else if (goalID_ == goalID) {
                            loadGoal();  // another store is there; the result may be from either
                          }
                        });
}

void DeskController::showRecorded(const TriedStore& tried) {
  if (!goalID_) return;
  // The tasks of the engine end in the order of their starts: no result that was read earlier comes
  // after this one.
  if (tried.result && text::equal(tried.result->goal.id, *goalID_) &&
      tried.number == engine_->storeNumber()) {
    takeGoal(*goalID_, *tried.number,
             task::Result<GoalResultSnapshotV1>::returned(GoalResultSnapshotV1(*tried.result)));
  } else {
    loadGoal();
  }
}

void DeskController::takeGoal(const std::string& goalID, std::uint64_t store,
                              task::Result<GoalResultSnapshotV1> result) {
  if (goalID_ != goalID) return;  // the user has gone on to another goal
  if (const QString failure = failureOf(result); !failure.isEmpty()) {
    if (display_.keepGoal(goalID)) {  // with the editors that are open in it
      showLoadingFailure(loadingGoal(), failure, [this] { loadGoal(); });
    } else {
      display_.showFailure(failure);
    }
    return;
  }
  shownBefore_.remove(loadingGoal());
  std::optional<LoadedGoal> before =
      std::exchange(shown_, LoadedGoal{goalID, std::move(result).take(), store});
  display_.showGoal(*shown_);
  const bool isNews = std::exchange(hasNewResult_, false);
  const bool isSameGoal = before && before->id == goalID && before->store == store;
  if (isNews && isSameGoal && display_.isHeard()) {  // a comparison of all people
    announce(newsOf(before->snapshot, shown_->snapshot));
    announce(newsOfOutcomes(before->snapshot, shown_->snapshot, ownOutcomes_));
  }
}

void DeskController::announce(const QString& news) {
  if (!news.isEmpty()) display_.announce(news);
}

void DeskController::announceStored(const std::string& goalID,
                                    const std::vector<std::string>& outcomeIDs) {
  for (const std::string& id : outcomeIDs) ownOutcomes_.emplace(id, true);
  if (!display_.isHeard()) return;
  const auto take = [this](auto result) {
    if (!result.hasValue()) return;  // reading the store fails with a message of its own
    // The others were discarded.
    for (const std::string& id : std::move(result).take()) display_.noteStored(id);
  };
  qt::startOnMainThread(*this, engine_->storedOutcomes(goalID, outcomeIDs), take);
}

void DeskController::record(const LoadedGoal& goal, const GoalOutcomeRecordingInput& input) {
  const QString subject = subjectName(goal.snapshot, input.subjectKind(), input.subjectRef());
  const std::string id = newOutcomeID();
  ownOutcomes_.emplace(id, true);
  waiting_.add({id, engine_->storeMark(goal.store), now(), goal.id, goal.snapshot.goal().title,
                subject.toStdString(), input},
               goal.store);
}

void DeskController::showWaiting() {
  const std::vector<WaitingNote> notes = waiting_.notes();
  for (const WaitingNote& note : notes) ownOutcomes_.emplace(note.id, true);
  display_.showWaiting(notes);
}

std::vector<WaitingNote> DeskController::waiting() {
  if (waiting_.readJournal()) waiting_.syncJournal();
  return waiting_.notes();
}

void DeskController::addSampleGoals() {
  qt::startOnMainThread(*this, engine_->import(sampleGoals()), [this](auto result) {
    if (const QString failure = failureOf(result); !failure.isEmpty()) {
      display_.showNotice(localized("The sample goals were not added.") + ' ' + failure,
                          [this] { addSampleGoals(); });
      return;
    }
    loadGoals();
  });
}

template <class Ask, class Show>
void DeskController::lookUp(Ask ask, const QString& failure, Show show) {
  refreshDetails_ = [this, ask, failure, show] {
    qt::startOnMainThread(*this, ask(),
                          [this, failure, show, wanted = ++detailsRequest_](auto result) {
                            if (wanted != detailsRequest_)
                              return;  // closed, or another look-up has begun since
                            if (const QString why = failureOf(result); !why.isEmpty()) {
                              refreshDetails_ = refreshShown_;
                              showLoadingFailure(failure, why);
                              display_.noteMissingDetails();
                            } else {
                              refreshShown_ = refreshDetails_;
                              shownBefore_.remove(failure);
                              show(std::move(result).take());
                            }
                          });
  };
  shownBefore_.remove(failure);
  refreshDetails_();
}

void DeskController::openPerson(const std::string& personRef) {
  lookUp([this, personRef] { return engine_->person(personRef); },
         localized("The person could not be looked up."),
         [this](PersonKnowledge person) { display_.showPerson(std::move(person)); });
}

void DeskController::openEvidence(const std::string& evidenceID) {
  lookUp([this, evidenceID] { return engine_->evidence(evidenceID); },
         localized("The source could not be looked up."),
         [this](EvidenceKnowledge evidence) { display_.showEvidence(std::move(evidence)); });
}

void DeskController::openPath(const std::string& goalID, const GoalPathCandidateDTO& path) {
  lookUp([this, path, goalID] { return engine_->names(goalID, path.personRefs); },
         localized("The people on the path could not be looked up."),
         [this, path](const std::vector<std::optional<std::string>>& names) {
           display_.showPath(path, names);
         });
}

void DeskController::closeDetails() {
  refreshDetails_ = refreshShown_ = nullptr;
  ++detailsRequest_;
  display_.closeDetails();
}

void DeskController::lookForChanges() {
  if (std::exchange(looking_, true)) return;  // one look at a time, however slow the disk
  qt::startOnMainThread(*this, engine_->version(),
                        [this](auto result) { takeVersion(std::move(result)); });
}

void DeskController::takeVersion(task::Result<std::int64_t> result) {
  looking_ = false;
  const QString failure = failureOf(result);
  const QString before = std::exchange(lookingFailed_, failure);
  if (!failure.isEmpty()) {
    if (failure != before) {
      display_.showNotice(localized("The store could not be read.") + ' ' + failure, nullptr);
    }
    return;
  }
  if (!before.isEmpty()) {
    display_.showNotice(
        localized("The store is shown as it is now, after it could not be read.") + ' ' + before,
        nullptr);
  }
  const std::int64_t version = std::move(result).take();
  const bool isSame = std::exchange(version_, version).value_or(version) == version;
  if (isSame && before.isEmpty()) return;
  hasNewGoals_ = hasNewResult_ = !isSame;  // of another program
  loadGoals();
  if (refreshDetails_) refreshDetails_();
  waiting_.tryInTheirStore();
}

void DeskController::showLoadingFailure(const QString& what, const QString& failure,
                                        std::function<void()> again) {
  if (std::exchange(shownBefore_[what], failure) == failure) return;
  if (!again) {
    display_.showNotice(what + ' ' + failure, nullptr);
    return;
  }
  display_.showNotice(what + ' ' + failure, [this, what, again = std::move(again)] {
    shownBefore_.remove(what);
    again();
  });
}

}  // namespace vemra::desk
