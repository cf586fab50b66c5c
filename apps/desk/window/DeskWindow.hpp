#pragma once

#include "apps/desk/window/DeskController.hpp"
#include "apps/desk/window/DeskDisplay.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QMainWindow>
#include <QPointer>

class QMessageBox;

namespace vemra::qt {
class ViewWidget;
}

namespace vemra::desk {

class FailurePage;
class GoalList;
class GoalScreens;
class Notice;
class Pages;
class SidePane;
class WaitingBar;
class Welcome;

/// The window of the reference host: the goals at the left, the result screen of the open one, and
/// beside it what the store knows of a person, a source or a path.
///
/// It shows what its `DeskController` has loaded, and passes on what the user does: with the controller
/// it is the whole of a host's part. Changes that other processes make to the store show up by themselves.
class DeskWindow : public QMainWindow, private DeskDisplay {
  Q_OBJECT

 public:
  /// Starts to load at once, and opens the goal of that id or else the first one there is.
  DeskWindow(std::shared_ptr<StoreEngine> engine, std::optional<std::string> goalID);

  ~DeskWindow() override;

  /// The screen of the goal that is open, or was open last.
  qt::ViewWidget& screen();

 protected:
  /// Asks once whether to close, while editors are open or outcomes are not stored.
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* makePanes();
  void closeAnyway();
  void closeWhenStored();
  void askToDiscardWaiting();

  void showGoals(const std::vector<GoalListing>& goals, const std::string& chosen) override;
  void showGoal(const LoadedGoal& goal) override;
  void keepGoal() override;
  void showFailure(const QString& reason) override;
  void showNotice(const QString& text, std::function<void()> tryAgain) override;
  void showWaiting(const std::vector<WaitingNote>& waiting) override;
  void showPerson(PersonKnowledge person) override;
  void showEvidence(EvidenceKnowledge evidence) override;
  void showPath(const GoalPathCandidateDTO& path,
                const std::vector<std::optional<std::string>>& names) override;
  void closeDetails() override;

  DeskController controller_;
  GoalList* goals_;
  Pages* centre_;
  std::unique_ptr<GoalScreens> screens_;
  Welcome* welcome_;
  FailurePage* failure_;
  SidePane* side_;
  Notice* notice_;
  WaitingBar* waiting_;
  QPointer<QMessageBox> question_;  ///< whether to close
  bool mayClose_ = false;           ///< the user has decided to
  bool closesWhenStored_ = false;
};

}  // namespace vemra::desk
