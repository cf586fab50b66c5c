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

/// The window of the reference host: the goals at the left, the result screen of the open one, and
/// beside it what the store knows of a person, a source or a path.
///
/// This is the whole of a host's part: load a snapshot off the main thread, hand a view made from
/// it to the screen, and when the screen hands out a recording, store it, load again, hand in a new
/// view. Changes that other processes make to the store show up by themselves.
class DeskWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// Starts to load at once, and opens the goal of that id or else the first one there is.
  DeskWindow(std::shared_ptr<StoreEngine> engine, std::optional<std::string> goalID);

  qt::ViewWidget& screen() { return *screen_; }

 private:
  void loadGoals();
  void takeGoals(task::Result<std::vector<GoalListing>> result);
  void openGoal(const std::string& goalID);
  void loadSnapshot();
  /// - Parameter store: the number of the store (`StoreEngine::storeNumber`) that the result is of.
  void takeSnapshot(const std::string& goalID, std::uint64_t store,
                    task::Result<GoalResultSnapshotV1> result);
  /// What the user wants recorded. Each try uses the same id, so that it is recorded once.
  struct OutcomeToRecord {
    std::string goalID;
    GoalOutcomeRecordingInput input;
    std::string id;
  };
  void record(const OutcomeToRecord& outcome, std::uint64_t store);
  void addSampleGoals();

  /// Asks for something, now and whenever the store has changed, and shows it beside the screen.
  ///
  /// - Parameters ask, show: give the task to be started, and take what it comes to.
  /// - Parameter failure: the sentence before the reason when the task fails.
  template <class Ask, class Show>
  void lookUp(Ask ask, const QString& failure, Show show);
  void openPerson(const std::string& personRef);
  void showEvidence(const std::string& evidenceID);
  void showPath(const GoalPathCandidateDTO& path);
  void closeSide();

  void lookForChanges();
  /// Shows a failure; trying again also records what could not be recorded so far.
  void tellFailure(const QString& text, std::function<void()> again = nullptr);
  /// Shows that something could not be loaded; once, however often the window tries by itself.
  void tellLoadingFailure(const QString& what, const QString& failure,
                          std::function<void()> again = nullptr);
  QString remarkOnUnrecorded() const;
  QWidget* makePanes();

  std::shared_ptr<StoreEngine> engine_;
  std::optional<std::string> goalID_;        // of the open goal
  std::optional<std::string> shownGoalID_;   // of the goal that the screen shows
  std::uint64_t sideRequest_ = 0;            // the last thing that was asked for the side pane
  std::vector<OutcomeToRecord> unrecorded_;  // those whose last try failed, for the next one
  std::function<void()> refreshSide_;        // asks once more for what the side pane shows
  std::optional<std::int64_t> version_;      // of the store, when it was last looked at
  bool looking_ = false;
  QString lookingFailed_;         // the last message about it
  QHash<QString, QString> told_;  // of what could not be loaded: the failure shown

  GoalList* goals_;
  QStackedWidget* centre_;
  qt::ViewWidget* screen_;
  Welcome* welcome_;
  FailurePage* failure_;
  SidePane* side_;
  Notice* notice_;
};

}  // namespace vemra::desk
