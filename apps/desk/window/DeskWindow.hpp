#pragma once

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraGoalSurface/model/GoalResultSnapshotV1.hpp"
#include "VemraPlatform/task/Result.hpp"
#include "apps/desk/store/StoreEngine.hpp"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QHash>
#include <QMainWindow>

class QStackedWidget;

namespace vemra::qt {
class ViewWidget;
}

namespace vemra::desk {

class FailurePage;
class GoalList;
class Notice;
class SidePane;
class Welcome;

/// The window of the reference host: the goals on the left, the result screen of the open goal, and
/// a pane that shows what the store knows of a person, a source or a path.
///
/// This is all that a host does: it loads a snapshot off the main thread and shows a view of it;
/// when the screen reports a recording, it stores the recording, loads the snapshot again and shows
/// a new view. The window also shows changes that other processes make to the store.
class DeskWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// Starts to load at once. Opens the goal with that id, or else the first goal.
  DeskWindow(std::shared_ptr<StoreEngine> engine, std::optional<std::string> goalID);

  qt::ViewWidget& screen() { return *screen_; }

 private:
  void loadGoals();
  void takeGoals(task::Result<std::vector<GoalListing>> result);
  void openGoal(const std::string& goalID);
  void loadSnapshot();
  /// - Parameter store: the number (`StoreEngine::storeNumber`) of the store that the result is
  ///   from.
  void takeSnapshot(const std::string& goalID, std::uint64_t store,
                    task::Result<GoalResultSnapshotV1> result);
  /// An outcome to record. Each try uses the same id, so that the store records it only once.
  struct OutcomeToRecord {
    std::string goalID;
    GoalOutcomeRecordingInput input;
    std::string id;
  };
  void record(const OutcomeToRecord& outcome, std::uint64_t store);
  void addSampleGoals();

  /// Starts a task, now and whenever the store has changed, and shows its result beside the screen.
  ///
  /// - Parameters ask, show: `ask` returns the task to start, `show` gets its result.
  /// - Parameter failure: the sentence before the reason when the task fails.
  template <class Ask, class Show>
  void lookUp(Ask ask, const QString& failure, Show show);
  void openPerson(const std::string& personRef);
  void showEvidence(const std::string& evidenceID);
  void showPath(const GoalPathCandidateDTO& path);
  void closeSide();

  void lookForChanges();
  /// Shows a failure. Its "Try again" also records the outcomes whose last try failed.
  void tellFailure(const QString& text, std::function<void()> again = nullptr);
  /// Shows that something could not be loaded; only once for each failure, although the window
  /// keeps trying.
  void tellLoadingFailure(const QString& what, const QString& failure,
                          std::function<void()> again = nullptr);
  QString remarkOnUnrecorded() const;
  QWidget* makePanes();

  std::shared_ptr<StoreEngine> engine_;
  std::optional<std::string> goalID_;        // of the open goal
  std::optional<std::string> shownGoalID_;   // of the goal that the screen shows
  std::uint64_t sideRequest_ = 0;            // the number of the last request for the side pane
  std::vector<OutcomeToRecord> unrecorded_;  // their last try failed; the next try includes them
  std::function<void()> refreshSide_;        // requests the side pane's content again
  std::optional<std::int64_t> version_;      // of the store, at the last check
  bool looking_ = false;
  QString lookingFailed_;         // the last message about a failed check
  QHash<QString, QString> told_;  // the shown failure for each thing that failed to load

  GoalList* goals_;
  QStackedWidget* centre_;
  qt::ViewWidget* screen_;
  Welcome* welcome_;
  FailurePage* failure_;
  SidePane* side_;
  Notice* notice_;
};

}  // namespace vemra::desk
