#pragma once

#include "VemraQt/PageRows.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/CloseQuestion.hpp"
#include "apps/desk/window/ColourChoice.hpp"
#include "apps/desk/window/DeskController.hpp"
#include "apps/desk/window/DeskDisplay.hpp"
#include "apps/desk/window/SessionRecording.hpp"
#include "apps/desk/window/StoreOpening.hpp"
#include "apps/desk/window/TextSize.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QMainWindow>
#include <QPointer>
#include <QStringList>

namespace vemra::desk {

class Announcement;
class FailurePage;
class FindPeople;
class GoalsBar;
class GoalList;
class GoalScreens;
class ImportDialog;
class MenuBar;
class Notice;
class Pages;
class Panes;
class ReadOnlyBar;
class SidePane;
class StorePage;
class WaitingBar;
class Welcome;

/// The window of the reference host: the goals at the left, the result screen of the open one, and
/// beside it the store's knowledge of a person, a source or a path.
///
/// It shows the data that its `DeskController` has loaded, and passes the user's actions on;
/// together they are a complete host. Changes that other processes make to the store appear by
/// themselves.
class DeskWindow : public QMainWindow, private DeskDisplay {
  Q_OBJECT

 public:
  /// Starts to load at once, and opens the goal with that id or else the first goal.
  DeskWindow(std::shared_ptr<StoreEngine> engine, std::optional<std::string> goalID);
  /// The same for a store that may be open for reading only, or not at all: then the window shows
  /// the reason and the possible actions.
  ///
  /// With a recording, the window writes down what its screens show and what the user does with
  /// them. A notice gives the reason when the recording ends too early.
  DeskWindow(StoreOpening opening, std::optional<std::string> goalID,
             const std::optional<RecordingWish>& recording = std::nullopt);

  ~DeskWindow() override;

  /// Opens a store in place of the one that is open. A store that cannot be opened leaves the open
  /// one as it is, and a notice gives the reason.
  void open(const std::string& file);
  /// Imports documents into the open store and shows the result.
  void importDocuments(const QStringList& files);
  /// Writes the open goal's result document.
  void exportGoal(const QString& file);
  /// The engine of the open store; none while no store is open.
  std::shared_ptr<StoreEngine> engine() const { return engine_; }
  /// Blocks until the tasks of all stores have ended that were open in this window. Call it at the
  /// end of a program.
  void finish();

  /// The screen of the goal that is open, or was open last.
  qt::ViewWidget& screen();

 protected:
  /// Asks once whether to close, while editors are open or outcomes are not stored.
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void makePanes();
  void goToGoals();
  void connectPanes();
  void connectMenus();
  void updateMenus();
  /// Lets a person who cannot see it hear the new size of the texts.
  void announceTextSize();
  bool mayImport() const;
  /// Whether the window can take a drop now. A store has to wait for the end of an import and for
  /// the answer to a question, which both belong to the open store.
  bool mayTake(const QDropEvent& drop) const;
  void chooseDocuments();
  void chooseExport();
  void openNeighbour(int step);
  void focusPane(int step);
  void closeSide();
  /// Opens a goal of the list and gives its row the focus.
  void goToGoal(const std::string& goalID);
  void focusPage();
  void showScreen();
  void bringDetails();
  /// Notes which element of the page the user has used to open details.
  void noteOpener();
  void rememberGoal() const;
  void retireEngine();
  void use(StoreOpening opening, std::optional<std::string> goalID);
  void chooseStore();
  /// Opens a store that the user has chosen, after the question about unfinished work.
  void openInstead(const QString& store);
  void showTitle(const LoadedGoal& goal);
  Unfinished unfinished() const;
  /// Does the next step now, or after the user has agreed to lose unfinished work.
  void leaveThen(Leaving leaving, std::function<void()> next);
  void leave(std::function<void()> next);
  /// Shows an editor that is still open, with the focus in it.
  void goToDraft();
  void leaveWhenStored(Leaving leaving, std::function<void()> next);
  void askToDiscardWaiting();

  void showGoals(const std::vector<GoalListing>& goals, const std::string& chosen) override;
  void showGoal(const LoadedGoal& goal) override;
  bool keepGoal(const std::string& goalID) override;
  void showFailure(const QString& reason) override;
  void showNotice(const QString& text, std::function<void()> tryAgain) override;
  void showWaiting(const std::vector<WaitingNote>& waiting) override;
  void noteStored(const std::string& id) override;
  bool isHeard() const override;
  void announce(const QString& sentence) override;
  void showPerson(PersonKnowledge person) override;
  void showEvidence(EvidenceKnowledge evidence) override;
  void showPath(const GoalPathCandidateDTO& path,
                const std::vector<std::optional<std::string>>& names) override;
  void noteMissingDetails() override;
  void closeDetails() override;

  /// A control in the page of a goal.
  struct PlaceInPage {
    QPointer<qt::ViewWidget> page;
    qt::ReadingPlace place;
  };

  std::shared_ptr<StoreEngine> engine_;
  std::vector<std::shared_ptr<StoreEngine>> replaced_;  ///< the engines with tasks that still run
  std::string file_;  ///< of the store that is open, or could not be opened
  std::unique_ptr<DeskController> controller_;  ///< none while no store is open
  MenuBar* menus_;
  TextSize textSize_;
  ColourChoice colourChoice_;
  QPointer<ImportDialog> importing_;
  Panes* panes_;
  GoalsBar* goalsBar_;
  GoalList* goals_;
  Pages* centre_;
  std::unique_ptr<GoalScreens> screens_;
  std::unique_ptr<FindPeople> find_;
  std::unique_ptr<recording::Recorder> recorder_;  ///< none while nothing is recorded
  Welcome* welcome_;
  FailurePage* failure_;
  StorePage* storePage_;
  SidePane* side_;
  PlaceInPage opener_;         ///< the control that opened the details
  PlaceInPage leftPlace_;      ///< the control that had the focus before F6 left the page
  bool detailsAsked_ = false;  ///< the user has asked for details that are not shown yet
  Notice* notice_;
  WaitingBar* waiting_;
  ReadOnlyBar* readOnly_;
  Announcement* announcement_;      // of changes that the window shows by themselves
  QPointer<QMessageBox> question_;  ///< whether to close, or to discard; one at a time
  bool mayClose_ = false;           ///< the user has decided to
  /// The next step once every outcome is stored that needs no decision; called with the others.
  std::function<void(const std::vector<WaitingNote>&)> whenStored_;
};

}  // namespace vemra::desk
