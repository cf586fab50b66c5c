#include "apps/desk/store/FileIdentity.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Reasons.hpp"
#include "apps/desk/window/WaitingOutcomes.hpp"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <system_error>
#include <utility>

// The part of `WaitingOutcomes` that reads and writes the journal.

namespace vemra::desk {
namespace {

/// An outcome that is stored within this time is not put onto the disk in the journal too.
constexpr std::chrono::milliseconds withoutSync{50};

}  // namespace

bool WaitingOutcomes::readJournal() {
  if (!journal_) {
    for (Entry& entry : entries_) entry.unkept = localized("The store is open for reading only.");
    return true;
  }
  if (isJournalRead_ && entries_.empty()) return true;
  std::vector<WaitingOutcome> outcomes;
  try {
    outcomes = journal_->read();
  } catch (const std::exception& error) {
    noteJournalFailure(error);
    return false;
  }
  journalFailure_.clear();
  std::set<std::string> ids;
  for (const WaitingOutcome& outcome : outcomes) ids.insert(outcome.id);
  // On a disk that is not mounted, the journal is missing like the store.
  const bool isStoreThere = identityAt(engine_->file()).has_value();
  std::map<std::string, std::vector<std::string>> settled;  // by another program, in each goal
  for (auto entry = entries_.begin(); entry != entries_.end();) {
    const auto next = std::next(entry);
    if (entry->isDiscarded) {
      // It has left the journal, and waits only for the end of its try.
    } else if (!entry->isKept) {
      keepInJournal(*entry);
    } else if (ids.contains(entry->outcome.id)) {
      entry->unkept.clear();
    } else if (!isStoreThere) {
      entry->unkept = localized("The journal is not there.");
    } else if (entry->outcome.id != trying_) {
      settled[entry->outcome.goalID].push_back(entry->outcome.id);
      entries_.erase(entry);
    }
    entry = next;
  }
  if (!std::exchange(isJournalRead_, true)) adopt(std::move(outcomes));
  for (const auto& [goalID, settledIDs] : settled) Q_EMIT settledElsewhere(goalID, settledIDs);
  if (!settled.empty()) Q_EMIT changed();
  return true;
}

void WaitingOutcomes::noteJournalFailure(const std::exception& error) {
  const QString reason = reasonOf(error);
  const bool isBusy = dynamic_cast<const StoreBusy*>(&error) != nullptr;
  for (Entry& entry : entries_) {
    // A journal that another program has locked keeps its content.
    if (!entry.isKept || !isBusy) entry.unkept = reason;
  }
  const bool isNews = std::exchange(journalFailure_, reason) != reason;
  if (isJournalRead_) return;
  if (isBusy) {
    pause_.start(shortestPause);
  } else if (isNews) {
    Q_EMIT journalFailed(reason);
  }
}

/// The program that wrote these outcomes may have ended before it put them onto the disk.
void WaitingOutcomes::adopt(std::vector<WaitingOutcome> outcomes) {
  Entries adopted;
  for (WaitingOutcome& outcome : outcomes) {
    if (find(outcome.id) != entries_.end()) continue;
    adopted.push_back({.outcome = std::move(outcome),
                       .store = std::nullopt,
                       .since = Clock::now(),
                       .isKept = true,
                       .mayBeWritten = true});
  }
  if (!adopted.empty()) unsynced_.start(withoutSync);
  entries_.splice(entries_.begin(), adopted);  // they were saved before
}

void WaitingOutcomes::keepInJournal(Entry& entry) {
  const bool isFirstTry = entry.unkept.isEmpty();
  try {
    entry.mayBeWritten = true;
    journal_->add(entry.outcome, isFirstTry ? JournalFile::Sync::later : JournalFile::Sync::now);
    entry.isKept = true;
    entry.isSynced = !isFirstTry;
    entry.unkept.clear();
  } catch (const std::exception& error) {
    entry.unkept = reasonOf(error);
  }
  if (entry.isKept && !entry.isSynced && !unsynced_.isActive()) unsynced_.start(withoutSync);
}

/// The time counts from the saving of the oldest outcome that is not on the disk, so that later
/// ones neither postpone its sync nor are put onto the disk before their time.
void WaitingOutcomes::syncWhenDue() {
  const auto oldest = std::ranges::find_if(entries_, &Entry::waitsForSync);
  if (oldest == entries_.end()) return;
  const auto left =
      std::chrono::ceil<std::chrono::milliseconds>(oldest->since + withoutSync - Clock::now());
  if (left > std::chrono::milliseconds::zero()) {
    unsynced_.start(left);
    return;
  }
  syncJournal();
  Q_EMIT changed();
}

void WaitingOutcomes::syncJournal() {
  unsynced_.stop();
  if (!journal_ || std::ranges::none_of(entries_, &Entry::waitsForSync)) return;
  QString failure;
  try {
    if (!journal_->sync()) return;  // `readJournal` notes that the journal is missing
  } catch (const StoreBusy&) {
    // A journal that another program has locked keeps its content. Each try stops the main thread
    // while it waits for the lock.
    unsynced_.start(shortestPause);
    return;
  } catch (const std::exception& error) {
    failure = reasonOf(error);
  }
  for (Entry& entry : entries_) {
    if (!entry.waitsForSync()) continue;
    entry.isSynced = failure.isEmpty();
    // After a failure the system may have dropped what was written: the next pass writes it again.
    entry.isKept = entry.isSynced;
    entry.unkept = failure;
  }
}

/// Whether neither the store nor the journal is there, as on a disk that is not mounted.
bool WaitingOutcomes::isDiskMissing() const {
  std::error_code unknown;  // counts as missing
  return !identityAt(engine_->file()) && !std::filesystem::exists(journal_->file(), unknown);
}

/// Returns false, with the reason in the entry, when the journal keeps the outcome.
bool WaitingOutcomes::removeFromJournal(Entry& entry) {
  if (journal_ && (entry.isKept || entry.mayBeWritten)) {
    if (isDiskMissing()) {  // the journal there would bring the outcome back
      entry.reason =
          localized("It could not be discarded.") + ' ' + localized("The journal is not there.");
      return false;
    }
    try {
      journal_->settle(entry.outcome.id, JournalFile::Sync::now);
    } catch (const std::exception& error) {
      entry.reason = localized("It could not be discarded.") + ' ' + reasonOf(error);
      return false;
    }
  }
  entry.isKept = entry.isSynced = entry.mayBeWritten = false;
  return true;
}

}  // namespace vemra::desk
