#pragma once

#include "VemraPlatform/task/Result.hpp"
#include "apps/desk/store/OutcomeJournal.hpp"
#include "apps/desk/store/StoreEngine.hpp"

#include <chrono>
#include <cstdint>
#include <exception>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QObject>
#include <QString>
#include <QTimer>

namespace vemra::desk {

/// An outcome that is not stored yet, in the form in which it is shown.
struct WaitingNote {
  std::string id;
  QString outcome;    ///< "Helped"
  QString subject;    ///< the person, or the path, as the goal named it when the outcome was saved
  QString goalTitle;  ///< of that goal
  QString reason;     ///< why the last try failed; "" during the first try
  QString
      unkept;  ///< why it is not in the journal and would be lost at the end of the program; or ""
  /// It is not stored until the user decides, about it or about an earlier outcome of its goal.
  bool needsDecision = false;
};

/// The outcomes between "Save" and the store. Each is first written into the store's journal and
/// then recorded, always with the same id, in the order in which they were saved: of two outcomes
/// for one person the later one counts. The journal does not wait for the disk at once, because the
/// store's own transaction puts the outcome there; an outcome that is not recorded a moment later,
/// or whose try fails, is put onto the disk in the journal, before it is shown as waiting.
///
/// An outcome that cannot be recorded waits; it is tried again
///
/// - by itself, at growing intervals, while the store is locked or the system fails;
/// - when `tryAgain` is called, and then once in the store that is at the path;
/// - at the next start of a program on this store, from the journal.
///
/// Without `tryAgain`, an outcome is recorded only in the store that it was saved in.
///
/// Several programs with one journal may have the same waiting outcomes. So each pass over them
/// first reads the journal: an outcome that another program has recorded or discarded is dropped,
/// and an outcome that the journal refused is written to it again.
///
/// Main thread only.
class WaitingOutcomes : public QObject {
  Q_OBJECT

 public:
  /// - Parameter journal: none for a store that is open for reading only.
  WaitingOutcomes(std::shared_ptr<StoreEngine> engine, std::optional<OutcomeJournal> journal);
  /// Puts the journal onto the disk if outcomes wait in it.
  ~WaitingOutcomes() override;

  /// Tries the outcomes of the journal. Emits `journalFailed` when it cannot be read, and reads it
  /// again at the next pass. Call once.
  void start();

  /// Records an outcome, or keeps it while that is not possible.
  ///
  /// - Parameter store: the store that the screen shows (`LoadedGoal::store`); when another one has
  ///   replaced it, the outcome waits until `tryAgain`. With nil, `WaitingOutcome::store` decides.
  void add(WaitingOutcome outcome, std::optional<std::uint64_t> store);

  /// Tries all of them now, once, in the store at the path. Those that fail are bound to the store
  /// that was tried.
  void tryAgain();
  /// Tries them now, each in its own store only; for example after the store has changed.
  void tryInTheirStore();
  /// Discards the outcomes with these ids: they leave the journal and the notes at once. An outcome
  /// that cannot be taken out of the journal stays, with the reason. A try that is running goes on,
  /// and may still record its outcome.
  void discard(const std::vector<std::string>& ids);

  /// Compares with the journal, as at the beginning of a pass. Returns false when the journal cannot
  /// be read now.
  bool readJournal();
  /// Puts what waits in the journal onto the disk. An outcome that the disk does not take is noted
  /// as one that would be lost. While another program has the journal locked, tries again later.
  void syncJournal();

  /// Hands out the outcomes that are not in the journal, and drops them.
  std::vector<WaitingOutcome> takeUnkept();

  /// The outcomes to show as waiting, oldest first: all except those that were saved a moment ago,
  /// have not failed and are in the journal.
  std::vector<WaitingNote> notes() const;
  /// Whether no outcome waits and none is being tried.
  bool isEmpty() const { return entries_.empty(); }

 Q_SIGNALS:
  /// The outcome with that id is in the store now. `tried` names the store, and has the goal's result
  /// with the outcome if the store had it at hand.
  void recorded(const std::string& id, const TriedStore& tried);
  /// Another program has taken these outcomes of a goal out of the journal: it has recorded or
  /// discarded them.
  void settledElsewhere(const std::string& goalID, const std::vector<std::string>& ids);
  /// `notes` may have changed.
  void changed();
  /// The journal cannot be used; `reason` is a line that names the file and the place.
  void journalFailed(const QString& reason);

 private:
  static constexpr int shortestPause = 500;  // in milliseconds

  using Clock = std::chrono::steady_clock;
  struct Entry {
    WaitingOutcome outcome;
    std::optional<std::uint64_t> store;  ///< nil: the store of the mark in `outcome`
    Clock::time_point since;
    bool isKept = false;            ///< it is in the journal
    bool isSynced = false;          ///< and on the disk there
    bool mayBeWritten = false;      ///< the journal may hold it, also after a failed sync
    QString reason = {};            ///< why the last try failed
    QString unkept = {};            ///< why it is not in the journal
    std::uint64_t pass = 0;         ///< the pass in which it is still to be tried; 0: none
    bool mayEnterAnyStore = false;  ///< in that pass
    bool isDiscarded = false;       ///< no longer in the journal; dropped after the running try
    bool needsDecision = false;     ///< after the last try

    bool waitsForSync() const { return isKept && !isSynced; }
  };
  using Entries = std::list<Entry>;  // those of a journal are spliced in front of it

  Entries::iterator find(const std::string& id);
  void adopt(std::vector<WaitingOutcome> outcomes);
  void keepInJournal(Entry& entry);
  void syncWhenDue();
  void noteJournalFailure(const std::exception& error);
  void tryNext();
  void take(const std::string& id, std::uint64_t pass, const TriedStore& tried,
            task::Result<GoalOutcomeDTO> result);
  void holdBack(const Entry& failed, std::uint64_t pass, const TriedStore& tried, bool all);
  void finish(Entries::iterator entry);
  bool isDiskMissing() const;
  bool removeFromJournal(Entry& entry);

  std::shared_ptr<StoreEngine> engine_;
  std::optional<OutcomeJournal> journal_;
  Entries entries_;
  bool isJournalRead_ = false;
  QString journalFailure_;  ///< why the journal could not be read last; ""
  std::uint64_t pass_ = 0;  ///< the number of the last pass over the entries
  std::string trying_;      ///< the id of the outcome that a task is recording; ""
  QTimer pause_;            ///< until the next pass by itself
  QTimer unsynced_;         ///< until the journal is put onto the disk
  int nextPause_;           ///< in milliseconds
};

}  // namespace vemra::desk
