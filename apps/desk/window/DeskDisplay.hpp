#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/Knowledge.hpp"
#include "apps/desk/window/WaitingOutcomes.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QString>

namespace vemra::desk {

/// A goal's result, as it was loaded.
struct LoadedGoal {
  std::string id;
  GoalResultSnapshotV1 snapshot;
  /// Of the store that the result is of (`StoreEngine::storeNumber`).
  std::uint64_t store = 0;
};

/// The display of a `DeskController`. Its functions are called on the main thread only.
class DeskDisplay {
 public:
  /// The goals of the store in their order; `chosen` is the id of the open one, or "".
  virtual void showGoals(const std::vector<GoalListing>& goals, const std::string& chosen) = 0;
  /// Shows the result of the open goal, in place of the result shown so far or of a failure.
  virtual void showGoal(const LoadedGoal& goal) = 0;
  /// Shows an earlier result of that goal, which could not be loaded again, if the display still
  /// has one. Returns whether it has.
  virtual bool keepGoal(const std::string& goalID) = 0;
  /// The open goal could not be loaded, and the display has no earlier result of it.
  virtual void showFailure(const QString& reason) = 0;
  /// A sentence beside the goal. `tryAgain`, if there is one, is offered to the user.
  virtual void showNotice(const QString& text, std::function<void()> tryAgain) = 0;

  /// The outcomes that are not stored yet, oldest first; none when all are.
  virtual void showWaiting(const std::vector<WaitingNote>& waiting) = 0;

  /// The outcome with that id is stored, by this program or by another one that shares the journal.
  /// It no longer waits, or `showWaiting` without it follows.
  virtual void noteStored(const std::string& id) = 0;
  /// Whether assistive technology reads the display now. Without it, nothing has to be announced.
  virtual bool isHeard() const = 0;
  /// A sentence for assistive technology about something that the window shows by itself.
  virtual void announce(const QString& sentence) = 0;

  virtual void showPerson(PersonKnowledge person) = 0;
  virtual void showEvidence(EvidenceKnowledge evidence) = 0;
  /// `names` are those of the people on the path, nil where a person has none.
  virtual void showPath(const GoalPathCandidateDTO& path,
                        const std::vector<std::optional<std::string>>& names) = 0;
  /// The details that the user has asked for could not be looked up; a notice gives the reason.
  /// Those that are shown stay.
  virtual void noteMissingDetails() = 0;
  /// Removes the details of a person, a source or a path.
  virtual void closeDetails() = 0;

 protected:
  ~DeskDisplay() = default;
};

}  // namespace vemra::desk
