#pragma once

#include "VemraPlatform/task/Result.hpp"
#include "apps/desk/store/OutcomeJournal.hpp"
#include "apps/desk/store/StoreEngine.hpp"

#include <chrono>
#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QString>
#include <QTimer>

namespace vemra::desk {

/// An outcome that the store has not taken yet, as it is shown.
struct WaitingNote {
  QString outcome;    ///< "Helped"
  QString subject;    ///< the person, or the path, as the goal named it when the outcome was saved
  QString goalTitle;  ///< of that goal
  QString reason;     ///< why the last try failed; "" while the first one goes on
  QString unkept;     ///< why the journal does not hold it, so that it ends with the program; or ""
};

/// The outcomes between "Save" and the store. Each is written into the store's journal first, then
/// recorded under one id, in the order in which they were saved: of two outcomes for one person the
/// later one counts. An outcome that cannot be recorded waits; it is tried again
///
/// - by itself, at growing intervals, while the store is locked or the system fails;
/// - when `tryAgain` is called, and then in the store that is at the path;
/// - at the next start of a program on this store, from the journal.
///
/// Main thread only.
class WaitingOutcomes : public QObject {
  Q_OBJECT

 public:
  /// - Parameter journal: none for a store that is open for reading only.
  WaitingOutcomes(std::shared_ptr<StoreEngine> engine, std::optional<OutcomeJournal> journal);

  /// Tries the outcomes of the journal. Emits `journalFailed` when it cannot be read. Call once.
  void start();

  /// Records an outcome, or keeps it while that is not possible.
  ///
  /// - Parameter store: the store that the screen shows (`LoadedGoal::store`); when another one has
  ///   replaced it, the outcome waits until `tryAgain`. With nil, it goes to the store at the path.
  void add(WaitingOutcome outcome, std::optional<std::uint64_t> store);

  /// Tries all of them now.
  void tryAgain();
  /// Tries them now, each in its own store only; because the store has changed, for instance.
  void tryInTheirStore();
  /// Forgets all of them; those of the journal too.
  void discard();

  /// Gives up the outcomes that the journal does not hold.
  std::vector<WaitingOutcome> takeUnkept();

  /// The outcomes that wait visibly, oldest first: not those that were saved a moment ago and have
  /// not failed.
  std::vector<WaitingNote> notes() const;
  bool isEmpty() const { return entries_.empty(); }

 Q_SIGNALS:
  /// An outcome is in the store now.
  void recorded();
  /// `notes` may have changed.
  void changed();
  /// The journal cannot be used; `reason` is a line that names the file and the place.
  void journalFailed(const QString& reason);

 private:
  using Clock = std::chrono::steady_clock;
  struct Entry {
    WaitingOutcome outcome;
    std::optional<std::uint64_t> store;  ///< nil: the store that is at the path
    Clock::time_point since;
    QString reason;
    QString unkept;
    std::uint64_t pass = 0;  ///< the pass in which it is still to be tried; 0: none
  };
  using Entries = std::list<Entry>;  // the inputs inside cannot be assigned

  void tryNext();
  void take(const std::string& id, std::uint64_t pass, task::Result<GoalOutcomeDTO> result);
  void finish(Entries::iterator entry);
  void keepInJournal(Entry& entry) const;

  std::shared_ptr<StoreEngine> engine_;
  std::optional<OutcomeJournal> journal_;
  Entries entries_;
  std::uint64_t pass_ = 0;  ///< the number of the last pass over the entries
  bool isTrying_ = false;   ///< a task for an entry is on its way
  QTimer pause_;            ///< until the next pass by itself
  int nextPause_;           ///< in milliseconds
};

}  // namespace vemra::desk
