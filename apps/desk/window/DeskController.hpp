#pragma once

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraPlatform/task/Result.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "apps/desk/window/DeskDisplay.hpp"
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

/// The part of a host that has no widgets: it loads snapshots off the main thread, stores outcomes and
/// loads again, looks for changes that other programs make to the store, and keeps what could not be
/// stored (`WaitingOutcomes`).
///
/// Main thread only.
class DeskController : public QObject {
 public:
  /// - Parameter display: outlives the controller.
  DeskController(std::shared_ptr<StoreEngine> engine, DeskDisplay& display);

  /// Starts to load, to look for changes and to record what waits in the journal; opens the goal of
  /// that id, or else the first one there is. Call once.
  void start(std::optional<std::string> goalID);

  /// Closes the details and loads the goal, unless it is open.
  void openGoal(const std::string& goalID);
  /// Loads the list of goals, and the open goal, again.
  void loadGoals();
  /// Loads the open goal again.
  void loadGoal();
  /// Stores what the user recorded for a goal that is shown, and loads the open goal again. While
  /// that is not possible, the outcome waits, under the names that it has in `goal`.
  void record(const LoadedGoal& goal, const GoalOutcomeRecordingInput& input);
  /// Tries to record what waits, once in the store that is there now.
  void recordWaiting() { waiting_.tryAgain(); }
  /// Forgets the waiting outcomes with these ids.
  void discardWaiting(const std::vector<std::string>& ids) { waiting_.discard(ids); }
  /// What waits, after a look at what other programs have done with it.
  std::vector<WaitingNote> waiting();
  /// Gives up what waits and is not in the journal, for another controller to keep.
  std::vector<WaitingOutcome> takeWaiting() { return waiting_.takeUnkept(); }
  void keepWaiting(WaitingOutcome outcome) { waiting_.add(std::move(outcome), std::nullopt); }
  const std::optional<std::string>& openGoalID() const { return goalID_; }
  /// Stores the sample goals and opens the first one.
  void addSampleGoals();

  /// Looks up what the store knows, now and whenever it has changed, until something else is looked up
  /// or `closeDetails`.
  void openPerson(const std::string& personRef);
  void openEvidence(const std::string& evidenceID);
  /// - Parameter goalID: the goal whose screen shows the path.
  void openPath(const std::string& goalID, const GoalPathCandidateDTO& path);
  void closeDetails();

 private:
  void takeGoals(task::Result<std::vector<GoalListing>> result);
  void takeGoal(const std::string& goalID, std::uint64_t store,
                task::Result<GoalResultSnapshotV1> result);
  void lookForChanges();
  void takeVersion(task::Result<std::int64_t> result);

  /// - Parameters ask, show: give the task to be started, and take its result.
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
  std::uint64_t detailsRequest_ = 0;      // the last look-up
  std::function<void()> refreshDetails_;  // looks up once more what the details show
  std::optional<std::int64_t> version_;   // of the store, when it was last looked at
  bool looking_ = false;
  QString lookingFailed_;                // why looking for changes failed last; "" if it did not
  QHash<QString, QString> shownBefore_;  // what could not be loaded: the reason that was shown
};

}  // namespace vemra::desk
