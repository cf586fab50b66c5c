#include "apps/desk/window/WaitingOutcomes.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/OnMainThread.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

namespace vemra::desk {
namespace {

using namespace std::chrono_literals;

/// An outcome that is stored within this time is not shown as waiting.
constexpr std::chrono::milliseconds unnoticed = 250ms;
constexpr int shortestPause = 500;
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
    return {fromUTF8(busy.what()), true};
  } catch (const StoreFailure& failure) {
    return {fromUTF8(failure.what()), true};
  } catch (const std::exception& error) {
    return {fromUTF8(error.what()), false};
  }
}

}  // namespace

WaitingOutcomes::WaitingOutcomes(std::shared_ptr<StoreEngine> engine,
                                 std::optional<OutcomeJournal> journal)
    : engine_(std::move(engine)), journal_(std::move(journal)), nextPause_(shortestPause) {
  pause_.setSingleShot(true);
  connect(&pause_, &QTimer::timeout, this, &WaitingOutcomes::tryInTheirStore);
}

void WaitingOutcomes::start() {
  if (!journal_) return;
  try {
    for (WaitingOutcome& outcome : journal_->read()) {
      entries_.push_back({std::move(outcome), std::nullopt, Clock::now(), {}, {}, 0});
    }
  } catch (const std::exception& error) {
    Q_EMIT journalFailed(fromUTF8(error.what()));
  }
  tryInTheirStore();
}

void WaitingOutcomes::add(WaitingOutcome outcome, std::optional<std::uint64_t> store) {
  entries_.push_back({std::move(outcome), store, Clock::now(), {}, {}, 0});
  keepInJournal(entries_.back());
  QTimer::singleShot(unnoticed, this, &WaitingOutcomes::changed);
  tryInTheirStore();
}

void WaitingOutcomes::keepInJournal(Entry& entry) const {
  if (!journal_) {
    entry.unkept = localized("The store is open for reading only.");
    return;
  }
  try {
    journal_->add(entry.outcome);
  } catch (const std::exception& error) {
    entry.unkept = fromUTF8(error.what());
  }
}

void WaitingOutcomes::tryAgain() {
  for (Entry& entry : entries_) entry.store.reset();
  tryInTheirStore();
}

void WaitingOutcomes::tryInTheirStore() {
  pause_.stop();
  ++pass_;
  for (Entry& entry : entries_) entry.pass = pass_;
  if (!isTrying_) tryNext();
}

void WaitingOutcomes::tryNext() {
  const auto due = std::find_if(entries_.begin(), entries_.end(),
                                [](const Entry& entry) { return entry.pass != 0; });
  if (due == entries_.end()) return;
  const std::uint64_t pass = std::exchange(due->pass, 0);
  isTrying_ = true;
  const WaitingOutcome& outcome = due->outcome;
  startOnMainThread(
      *this, engine_->record(outcome.goalID, outcome.input, due->store, outcome.id),
      [this, id = outcome.id, pass](auto result) { take(id, pass, std::move(result)); });
}

void WaitingOutcomes::take(const std::string& id, std::uint64_t pass,
                           task::Result<GoalOutcomeDTO> result) {
  isTrying_ = false;
  const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const Entry& each) { return each.outcome.id == id; });
  if (result.hasValue()) {
    nextPause_ = shortestPause;
    if (entry != entries_.end()) finish(entry);
    Q_EMIT recorded();
    Q_EMIT changed();
    tryNext();
    return;
  }
  const Failure failure = failureOf(result.exception());
  if (entry != entries_.end()) {
    entry->reason = failure.reason;
    // The order of a goal's outcomes decides which one counts: those behind this one wait, too.
    for (Entry& later : entries_) {
      const bool isOfGoal = text::equal(later.outcome.goalID, entry->outcome.goalID);
      // A pass that has begun since tries them all anew.
      if (later.pass == pass && (failure.passes || isOfGoal)) later.pass = 0;
    }
  }
  Q_EMIT changed();
  tryNext();
  if (failure.passes && !isTrying_) {
    pause_.start(nextPause_);
    nextPause_ = std::min(2 * nextPause_, longestPause);
  }
}

void WaitingOutcomes::finish(Entries::iterator entry) {
  if (journal_ && entry->unkept.isEmpty()) {
    try {
      journal_->settle(entry->outcome.id);
    } catch (const std::exception& error) {
      // The next start tries it again; the store finds the id and records nothing.
      Q_EMIT journalFailed(fromUTF8(error.what()));
    }
  }
  entries_.erase(entry);
}

void WaitingOutcomes::discard() {
  while (!entries_.empty()) finish(entries_.begin());
  pause_.stop();
  Q_EMIT changed();
}

std::vector<WaitingOutcome> WaitingOutcomes::takeUnkept() {
  std::vector<WaitingOutcome> outcomes;
  for (auto entry = entries_.begin(); entry != entries_.end();) {
    const auto next = std::next(entry);
    if (!entry->unkept.isEmpty()) {
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
  for (const Entry& entry : entries_) {
    if (entry.reason.isEmpty() && now < entry.since + unnoticed) continue;
    notes.push_back({fromUTF8(GoalOutcomeRecordingFormLogic::label(entry.outcome.input.outcome)),
                     fromUTF8(entry.outcome.subjectName), fromUTF8(entry.outcome.goalTitle),
                     entry.reason, entry.unkept});
  }
  return notes;
}

}  // namespace vemra::desk
