#pragma once

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "apps/desk/store/JournalFile.hpp"

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace vemra::desk {

/// An outcome that a person has saved and that the store has not taken yet.
struct WaitingOutcome {
  std::string id;       ///< from `newOutcomeID`; every try to record it uses this id
  std::string store;    ///< `fileMarkAt` of the store that it was saved in
  std::string savedAt;  ///< the date of the outcome, from `now`
  std::string goalID;
  /// \name For messages: what the goal and the subject were called when the outcome was saved @{
  std::string goalTitle;
  std::string subjectName;
  /// @}
  GoalOutcomeRecordingInput input;
};

/// The journal of a store: a small file beside it with the outcomes that wait to be recorded, so
/// that the end of a program loses none of them.
///
/// The file is `<store>-waiting`: lines of JSON, each with a line feed. The first line names the
/// format and its version; each further line adds an outcome, or says that an outcome is settled:
///
///     {"format": "vemra-desk waiting outcomes", "version": 1}
///     {"waiting": {"id": "outcome-7", "store": "inode 5 made at …", "savedAt": …}}
///     {"settled": "outcome-7"}
///
/// Lines are appended; when settled outcomes take most of the file, it is replaced by one without
/// them. The file is removed when nothing waits in it. A text after the last line feed is a line
/// that was not written to its end: it counts if it lacks the line feed only, otherwise it is left
/// out and the next line replaces it. Null bytes at the end of the file, which a power cut may
/// leave, are left out too.
///
/// Several programs may use a journal at once: each call locks the file. An outcome may be read by
/// two of them, and recorded by both: `GoalStore::record` records an id once.
///
/// Every call but the constructor may throw: a `StoreError` when the file cannot be used, or is not
/// this user's alone, and a `documents::DocumentError` when its content is not a journal of this
/// version. Both name the file, the second one the line and the place in it. The file then stays as
/// it is.
class OutcomeJournal {
 public:
  /// - Parameter store: the file of the store. Through a symbolic link, the journal is beside the
  ///   file that it leads to, so that one store has one journal.
  /// - Parameter patience: how long each call waits for other programs before it throws a
  ///   `StoreBusy`.
  /// - Parameter room: how many bytes the file may have; at most what can be read.
  explicit OutcomeJournal(const std::string& store,
                          std::chrono::milliseconds patience = std::chrono::seconds(2),
                          std::size_t room = JournalFile::most);

  const std::string& file() const { return file_; }

  /// The outcomes that wait, in the order in which they were added. Creates no file.
  std::vector<WaitingOutcome> read() const;

  /// Adds an outcome. Refuses an outcome for which there is no room in the file.
  ///
  /// - Parameter sync: with `now`, the outcome is on the disk when this returns. With `later`, the
  ///   file outlives the program, but not a power cut before the next `sync`.
  void add(const WaitingOutcome& outcome, JournalFile::Sync sync = JournalFile::Sync::now) const;

  /// Puts everything that was added onto the disk. Returns whether there is a file; without one, it
  /// does nothing.
  [[nodiscard]] bool sync() const;

  /// The outcome with that id waits no longer. Does nothing when it is not in the journal.
  ///
  /// - Parameter sync: `later` for an outcome that the store has: should the system end before the
  ///   line is on the disk, the outcome is tried once more, and the store finds its id. `now` for
  ///   an outcome that must not be recorded.
  void settle(const std::string& id, JournalFile::Sync sync = JournalFile::Sync::later) const;

 private:
  std::string file_;
  std::chrono::milliseconds patience_;
  std::size_t room_;
};

}  // namespace vemra::desk
