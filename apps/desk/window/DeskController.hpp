#pragma once

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraPlatform/task/Result.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "apps/desk/window/DeskDisplay.hpp"
#include "apps/desk/window/GoalNews.hpp"
#include "apps/desk/window/WaitingOutcomes.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QHash>
#include <QObject>

namespace vemra::desk {

/// The part of a host that has no widgets: it loads snapshots off the main thread, stores outcomes
/// and loads again, looks for changes that other programs make to the store, and keeps outcomes
/// that could not be stored (`WaitingOutcomes`).
///
/// Main thread only.
class DeskController : public QObject {
 public:
  /// - Parameter display: outlives the controller.
  DeskController(std::shared_ptr<StoreEngine> engine, DeskDisplay& display);

  /// Starts to load, to look for changes and to record the outcomes that wait in the journal; opens
  /// the goal with that id, or else the preferred one if the store has it, or else the first goal.
  /// Call once.
  void start(std::optional<std::string> goalID,
             std::optional<std::string> preferred = std::nullopt);

  /// Closes the details and loads the goal, unless it is open.
  void openGoal(const std::string& goalID);
  /// Loads the list of goals, and the open goal, again.
  void loadGoals();
  /// Loads the open goal again.
  void loadGoal();
  /// Stores what the user recorded for a goal that is shown, and loads the open goal again. While
  /// that is not possible, the outcome waits, under the names that it has in `goal`.
  void record(const LoadedGoal& goal, const GoalOutcomeRecordingInput& input);
  /// Tries to record the waiting outcomes, once in the present store.
  void recordWaiting() { waiting_.tryAgain(); }
  /// Forgets the waiting outcomes with these ids.
  void discardWaiting(const std::vector<std::string>& ids) { waiting_.discard(ids); }
  /// The waiting outcomes, after comparing with the journal, which other programs may have changed.
  std::vector<WaitingNote> waiting();
  /// Hands out the waiting outcomes that are not in the journal, for another controller to keep.
  std::vector<WaitingOutcome> takeWaiting() { return waiting_.takeUnkept(); }
  void keepWaiting(WaitingOutcome outcome) { waiting_.add(std::move(outcome), std::nullopt); }
  const std::optional<std::string>& openGoalID() const { return goalID_; }
  /// Stores the sample goals and opens the first one.
  void addSampleGoals();

  /// Looks up the store's knowledge, now and whenever the store has changed, until the next look-up
  /// or `closeDetails`.
  void openPerson(const std::string& personRef);
  void openEvidence(const std::string& evidenceID);
  /// - Parameter goalID: the goal whose screen shows the path.
  void openPath(const std::string& goalID, const GoalPathCandidateDTO& path);
  void closeDetails();

 private:
  void takeGoals(task::Result<std::vector<GoalListing>> result);
  /// Shows the open goal after an outcome has been recorded: with the result of the recording, if
  /// it has one and is of that goal, or else loads the goal again.
  void showRecorded(const TriedStore& tried);
  void takeGoal(const std::string& goalID, std::uint64_t store,
                task::Result<GoalResultSnapshotV1> result);
  void announce(const QString& news);
  /// Announces which of these outcomes are in the store, after another program has taken them out of
  /// the journal.
  void announceStored(const std::string& goalID, const std::vector<std::string>& outcomeIDs);
  void showWaiting();
  void lookForChanges();
  void takeVersion(task::Result<std::int64_t> result);

  /// - Parameters ask, show: return the task to start, and take its result.
  /// - Parameter failure: the sentence before the reason when the task fails.
  template <class Ask, class Show>
  void lookUp(Ask ask, const QString& failure, Show show);

  /// Shows that something could not be loaded; once, however often the controller tries by itself.
  void showLoadingFailure(const QString& what, const QString& failure,
                          std::function<void()> again = nullptr);

  std::shared_ptr<StoreEngine> engine_;
  DeskDisplay& display_;
  WaitingOutcomes waiting_;
  std::optional<std::string> goalID_;     // of the open goal
  std::optional<std::string> preferred_;  // to open when the goals are there
  std::vector<GoalListing> goals_;        // as shown last
  std::optional<LoadedGoal> shown_;       // as shown last
  OutcomeIDs ownOutcomes_;                // saved, or waiting, in this window; also discarded ones
  bool hasNewGoals_ = false;              // the next list may have news of another program
  bool hasNewResult_ = false;             // so may the next result
  std::uint64_t detailsRequest_ = 0;      // the last look-up
  std::function<void()> refreshDetails_;  // looks up the details again that were asked for last
  std::function<void()> refreshShown_;    // the same for those that are shown
  std::optional<std::int64_t> version_;   // of the store, at the last check
  bool looking_ = false;
  QString lookingFailed_;                // why looking for changes failed last; "" if it did not
  QHash<QString, QString> shownBefore_;  // the shown reason of the last failure to load
};

}  // namespace vemra::desk
