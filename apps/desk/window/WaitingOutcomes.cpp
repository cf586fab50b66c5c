#include "apps/desk/window/WaitingOutcomes.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "VemraQt/StartOnMainThread.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/Reasons.hpp"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

namespace vemra::desk {
namespace {

using namespace std::chrono_literals;

/// An outcome that is stored within this time is not shown as waiting.
constexpr std::chrono::milliseconds unnoticed = 250ms;
constexpr int longestPause = 5'000;

/// A failure to record: the reason, and whether a later try may succeed without the user.
struct Failure {
  QString reason;
  bool passes = false;
};

Failure failureOf(const std::exception_ptr& exception) {
  try {
    std::rethrow_exception(exception);
  } catch (const StoreBusy& busy) {
    return {reasonOf(busy), true};
  } catch (const StoreFailure& failure) {
    return {reasonOf(failure), true};
  } catch (const std::exception& error) {
    return {reasonOf(error), false};
  }
}

}  // namespace

WaitingOutcomes::WaitingOutcomes(std::shared_ptr<StoreEngine> engine,
                                 std::optional<OutcomeJournal> journal)
    : engine_(std::move(engine)), journal_(std::move(journal)), nextPause_(shortestPause) {
  pause_.setSingleShot(true);
  connect(&pause_, &QTimer::timeout, this, &WaitingOutcomes::tryInTheirStore);
  unsynced_.setSingleShot(true);
  connect(&unsynced_, &QTimer::timeout, this, &WaitingOutcomes::syncWhenDue);
}

WaitingOutcomes::~WaitingOutcomes() {
  try {
    syncJournal();
  } catch (const std::exception&) {
    // There is no memory for the reason of a failure, which no window shows any more.
  }
}

void WaitingOutcomes::start() {
  tryInTheirStore();
}

WaitingOutcomes::Entries::iterator WaitingOutcomes::find(const std::string& id) {
  return std::find_if(entries_.begin(), entries_.end(),
                      [&](const Entry& each) { return each.outcome.id == id; });
}

void WaitingOutcomes::add(WaitingOutcome outcome, std::optional<std::uint64_t> store) {
  if (find(outcome.id) != entries_.end()) return;
  entries_.push_back({std::move(outcome), store, Clock::now()});
  QTimer::singleShot(unnoticed, this, &WaitingOutcomes::changed);
  tryInTheirStore();
}

void WaitingOutcomes::tryAgain() {
  for (Entry& entry : entries_) entry.mayEnterAnyStore = true;
  tryInTheirStore();
}

void WaitingOutcomes::tryInTheirStore() {
  pause_.stop();
  readJournal();
  ++pass_;
  for (Entry& entry : entries_) entry.pass = pass_;
  if (trying_.empty()) tryNext();
}

void WaitingOutcomes::tryNext() {
  const auto due = std::find_if(entries_.begin(), entries_.end(),
                                [](const Entry& entry) { return entry.pass != 0; });
  if (due == entries_.end()) return;
  const std::uint64_t pass = std::exchange(due->pass, 0);
  try {
    const auto tried = std::make_shared<TriedStore>();
    if (!std::exchange(due->mayEnterAnyStore, false)) {
      tried->wantedNumber = due->store;
      tried->wantedMark = due->outcome.store;
    }
    std::string id = due->outcome.id;
    qt::startOnMainThread(
        *this, engine_->record(due->outcome, tried),
        [this, id, pass, tried](auto result) { take(id, pass, *tried, std::move(result)); });
    trying_ = std::move(id);
  } catch (const std::exception& error) {  // no memory for the task
    due->reason = reasonOf(error);
    pause_.start(nextPause_);
  }
}

void WaitingOutcomes::take(const std::string& id, std::uint64_t pass, const TriedStore& tried,
                           task::Result<GoalOutcomeDTO> result) {
  trying_.clear();
  const auto entry = find(id);
  if (result.hasValue()) {
    nextPause_ = shortestPause;
    if (entry != entries_.end()) finish(entry);
    Q_EMIT recorded(id, tried);
    Q_EMIT changed();
    tryNext();
    return;
  }
  const Failure failure = failureOf(result.exception());
  if (entry != entries_.end() && entry->isDiscarded) {
    entries_.erase(entry);  // no later outcome waits for it
  } else if (entry != entries_.end()) {
    entry->reason = failure.reason;
    entry->needsDecision = !failure.passes;
    if (!tried.wantedNumber && !tried.wantedMark && tried.number) {
      entry->store = tried.number;
      entry->outcome.store = tried.mark;
    }
    holdBack(*entry, pass, tried, failure.passes);
  }
  syncJournal();
  Q_EMIT changed();
  tryNext();
  if (failure.passes && trying_.empty()) {
    pause_.start(nextPause_);
    nextPause_ = std::min(2 * nextPause_, longestPause);
  }
}

/// Removes from the pass the outcomes that must wait for the one that failed: all of them, or those
/// of its goal in its store, because the order of a goal's outcomes decides which one counts.
void WaitingOutcomes::holdBack(const Entry& failed, std::uint64_t pass, const TriedStore& tried,
                               bool all) {
  for (Entry& later : entries_) {
    if (later.pass != pass) continue;  // a later pass tries all of them again
    const bool wouldEnterTried = later.mayEnterAnyStore && tried.number;
    const std::string& store = wouldEnterTried ? tried.mark : later.outcome.store;
    const bool isBehind =
        text::equal(later.outcome.goalID, failed.outcome.goalID) && store == failed.outcome.store;
    if (!all && !isBehind) continue;
    later.pass = 0;
    later.mayEnterAnyStore = false;
    if (!wouldEnterTried) continue;
    later.store = tried.number;
    later.outcome.store = tried.mark;
  }
}

void WaitingOutcomes::finish(Entries::iterator entry) {
  if (journal_ && (entry->isKept || entry->mayBeWritten)) {
    try {
      journal_->settle(entry->outcome.id);
    } catch (const StoreBusy&) {
      // The next start tries it again; the store finds the id and records nothing.
    } catch (const std::exception& error) {
      Q_EMIT journalFailed(reasonOf(error));
    }
  }
  entries_.erase(entry);
}

void WaitingOutcomes::discard(const std::vector<std::string>& ids) {
  for (const std::string& id : ids) {
    const auto entry = find(id);
    if (entry == entries_.end() || !removeFromJournal(*entry)) continue;
    if (id == trying_) {
      entry->isDiscarded = true;
    } else {
      entries_.erase(entry);
    }
  }
  if (entries_.empty()) pause_.stop();
  Q_EMIT changed();
}

std::vector<WaitingOutcome> WaitingOutcomes::takeUnkept() {
  std::vector<WaitingOutcome> outcomes;
  for (auto entry = entries_.begin(); entry != entries_.end();) {
    const auto next = std::next(entry);
    if (!entry->isDiscarded && (!entry->isKept || !entry->unkept.isEmpty())) {
      outcomes.push_back(std::move(entry->outcome));
      entries_.erase(entry);
    }
    entry = next;
  }
  return outcomes;
}

std::vector<WaitingNote> WaitingOutcomes::notes() const {
  const Clock::time_point now = Clock::now();
  std::vector<WaitingNote> notes;
  std::vector<const WaitingOutcome*> undecided;
  for (const Entry& entry : entries_) {
    if (entry.isDiscarded) continue;
    // Each pass holds back the later outcomes of the same goal.
    const bool isBehind = std::ranges::any_of(undecided, [&](const WaitingOutcome* earlier) {
      return text::equal(earlier->goalID, entry.outcome.goalID) &&
             earlier->store == entry.outcome.store;
    });
    const bool needsDecision = entry.needsDecision || isBehind;
    if (needsDecision) undecided.push_back(&entry.outcome);
    const bool isNew = entry.reason.isEmpty() && now < entry.since + unnoticed;
    if (isNew && entry.isKept && entry.unkept.isEmpty()) continue;
    notes.push_back({entry.outcome.id,
                     fromUTF8(GoalOutcomeRecordingFormLogic::label(entry.outcome.input.outcome())),
                     fromUTF8(entry.outcome.subjectName), fromUTF8(entry.outcome.goalTitle),
                     entry.reason, entry.unkept, needsDecision});
  }
  return notes;
}

}  // namespace vemra::desk
