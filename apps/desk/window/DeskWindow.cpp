#include "apps/desk/window/DeskWindow.hpp"

#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraPlatform/text/Equality.hpp"
#include "VemraQt/StartOnMainThread.hpp"
#include "VemraRecording/Recorder.hpp"
#include "apps/desk/window/AlertFrame.hpp"
#include "apps/desk/window/FailurePage.hpp"
#include "apps/desk/window/FindPeople.hpp"
#include "apps/desk/window/GoalList.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "apps/desk/window/GoalScreens.hpp"
#include "apps/desk/window/GoalsBar.hpp"
#include "apps/desk/window/ImportDialog.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Notice.hpp"
#include "apps/desk/window/Pages.hpp"
#include "apps/desk/window/Panes.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/ProgramIcon.hpp"
#include "apps/desk/window/ReadOnlyBar.hpp"
#include "apps/desk/window/Reasons.hpp"
#include "apps/desk/window/SidePane.hpp"
#include "apps/desk/window/StorePage.hpp"
#include "apps/desk/window/WaitingBar.hpp"
#include "apps/desk/window/Welcome.hpp"
#include "apps/desk/window/WindowMemory.hpp"

#include <algorithm>
#include <utility>

#include <QAccessible>
#include <QFileDialog>
#include <QShortcut>
#include <QVBoxLayout>

namespace vemra::desk {

DeskWindow::DeskWindow(std::shared_ptr<StoreEngine> engine, std::optional<std::string> goalID)
    : DeskWindow(StoreOpening{engine->file(), engine, {}, false}, std::move(goalID)) {}

DeskWindow::DeskWindow(StoreOpening opening, std::optional<std::string> goalID,
                       const std::optional<RecordingWish>& recording) {
  setObjectName("desk");
  // A fixed minimum size; otherwise panes that appear and disappear would change it.
  setMinimumSize(360, 320);
  setWindowIcon(programIcon());
  memory::restoreWindow(*this);

  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  notice_ = new Notice;
  waiting_ = new WaitingBar;
  readOnly_ = new ReadOnlyBar;
  goalsBar_ = new GoalsBar;
  makePanes();
  memory::restorePanes(*panes_);
  if (goalID) panes_->preferGoals(false);
  column->addWidget(readOnly_);
  column->addWidget(goalsBar_);
  column->addWidget(panes_, 1);
  column->addWidget(&find_->bar());
  column->addWidget(waiting_);
  column->addWidget(notice_);
  announcement_ = new Announcement(page);
  setCentralWidget(page);
  connectPanes();
  connectMenus();
  if (recording) {
    recorder_ = makeRecorder(*recording, *this,
                             [this](const QString& reason) { showNotice(reason, nullptr); });
  }
  use(std::move(opening), std::move(goalID));
}

void DeskWindow::connectPanes() {
  connect(goals_, &GoalList::goalChosen, this,
          [this](const std::string& goalID) { controller_->openGoal(goalID); });
  connect(goals_, &GoalList::goalPressed, this, [this] {
    if (panes_->leaveGoals()) focusPage();
  });
  connect(panes_, &Panes::goalsGaveWay, goalsBar_, &QWidget::setVisible);
  connect(goalsBar_, &GoalsBar::goalsWanted, this, &DeskWindow::goToGoals);
  connect(welcome_, &Welcome::importWanted, this, &DeskWindow::chooseDocuments);
  connect(welcome_, &Welcome::samplesWanted, this, [this] { controller_->addSampleGoals(); });
  connect(failure_, &FailurePage::tryAgainWanted, this, [this] { controller_->loadGoal(); });
  connect(waiting_, &WaitingBar::tryAgainWanted, this, [this] { controller_->recordWaiting(); });
  connect(waiting_, &WaitingBar::discardWanted, this, &DeskWindow::askToDiscardWaiting);
  connect(side_, &SidePane::closed, this, &DeskWindow::closeSide);
  connect(side_, &SidePane::goalWanted, this, &DeskWindow::goToGoal);
  connect(side_, &SidePane::personWanted, this,
          [this](const std::string& ref) { controller_->openPerson(ref); });
  connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this, [this] {
    if (find_->close()) return;
    if (panes_->leaveGoals()) {
      focusPage();
    } else {
      closeSide();
    }
  });
  connect(storePage_, &StorePage::anotherWanted, this, &DeskWindow::chooseStore);
  connect(storePage_, &StorePage::tryAgainWanted, this, [this] { open(file_); });
  connect(storePage_, &StorePage::readingWanted, this,
          [this] { use(openStore(file_, StoreUse::reading), std::nullopt); });
  connect(readOnly_, &ReadOnlyBar::tryAgainWanted, this, [this] { open(file_); });
}

void DeskWindow::use(StoreOpening opening, std::optional<std::string> goalID) {
  rememberGoal();
  const bool isSameFile = isSameStore(std::exchange(file_, opening.file), opening.file);
  std::vector<WaitingOutcome> kept;
  if (controller_ && isSameFile) kept = controller_->takeWaiting();
  if (!isSameFile) screens_->clear();
  find_->screenChanged();
  setWindowTitle("Vemra Desk");
  notice_->hide();
  isSameFile ? waiting_->setWaiting({}) : waiting_->forget();
  readOnly_->hide();
  side_->hide();
  delete importing_;
  controller_.reset();
  retireEngine();
  engine_ = opening.engine;
  if (!engine_) {
    panes_->setGoalsWanted(false);
    storePage_->setProblem(opening);
    centre_->showPage(*storePage_);
    find_->screenChanged();
    return;
  }
  if (opening.isReadOnly()) readOnly_->show(localizedReason(fromUTF8(opening.problem)));
  screens_->showAgain();
  DeskDisplay& display = *this;
  controller_ = std::make_unique<DeskController>(engine_, display);
  controller_->start(std::move(goalID), memory::goalOf(file_));
  for (WaitingOutcome& outcome : kept) controller_->keepWaiting(std::move(outcome));
}

/// Keeps the engine until its tasks have ended: they need it, and the application.
void DeskWindow::retireEngine() {
  if (!engine_) return;
  const std::shared_ptr<StoreEngine> engine = std::exchange(engine_, nullptr);
  replaced_.push_back(engine);
  qt::startOnMainThread(*this, engine->version(),
                        [this, engine](const auto&) { std::erase(replaced_, engine); });
}

void DeskWindow::finish() {
  for (const auto& engine : replaced_) engine->finish();
  if (engine_) engine_->finish();
}

void DeskWindow::open(const std::string& file) {
  StoreOpening opening = openStore(file);
  const bool isSameFile = isSameStore(file, file_);
  if (isSameFile && opening.isReadOnly() && engine_) {
    readOnly_->show(localizedReason(fromUTF8(opening.problem)));  // nothing has changed
    return;
  }
  if (engine_ && !opening.engine) {
    // The screens and the waiting outcomes belong to the store that is open.
    std::function<void()> tryAgain;
    if (!isSameFile && opening.mayBeRead) {
      tryAgain = [this, file] { openInstead(QString::fromStdString(file)); };
    }
    showNotice(localizedReason(fromUTF8(opening.problem)), std::move(tryAgain));
    return;
  }
  use(std::move(opening), isSameFile && controller_ ? controller_->openGoalID() : std::nullopt);
}

void DeskWindow::chooseStore() {
  auto* dialog = new QFileDialog(this, localized("Open a store"));
  dialog->setObjectName("desk.chooseStore");
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setFileMode(QFileDialog::ExistingFile);
  dialog->setNameFilters({localized("Stores (*.sqlite)"), localized("All files (*)")});
  connect(dialog, &QFileDialog::fileSelected, this, &DeskWindow::openInstead);
  dialog->open();
}

void DeskWindow::openInstead(const QString& store) {
  const std::string file = store.toStdString();
  if (isSameStore(file, file_)) {
    open(file);  // keeps the unfinished work
  } else {
    leaveThen(Leaving::openAnotherStore, [this, file] { open(file); });
  }
}

DeskWindow::~DeskWindow() = default;

qt::ViewWidget& DeskWindow::screen() {
  return screens_->current();
}

void DeskWindow::showGoals(const std::vector<GoalListing>& goals, const std::string& chosen) {
  goals_->setGoals(goals, chosen);
  panes_->setGoalsWanted(!goals.empty());
  if (goals.empty()) {
    centre_->showPage(*welcome_);
    find_->screenChanged();
  } else if (centre_->currentPage() == welcome_) {
    screens_->showAgain();
  }
}

void DeskWindow::showGoal(const LoadedGoal& goal) {
  screens_->show(goal, [&](ui::ViewGraph& graph) {
    const auto openPerson = [this](const std::string& ref) {
      noteOpener();
      controller_->openPerson(ref);
    };
    const auto openEvidence = [this](const std::string& id) {
      noteOpener();
      controller_->openEvidence(id);
    };
    const auto openPath = [this, id = goal.id](const GoalPathCandidateDTO& path) {
      noteOpener();
      controller_->openPath(id, path);
    };
    const auto record = [this, goal](const GoalOutcomeRecordingInput& input) {
      controller_->record(goal, input);
    };
    return recorder_
               ? recorder_->view(graph, goal.snapshot, openPerson, openEvidence, openPath, record)
               : GoalResultView(goal.snapshot, openPerson, openEvidence, openPath, record);
  });
  find_->screenChanged();
  showTitle(goal);
}

void DeskWindow::showTitle(const LoadedGoal& goal) {
  setWindowTitle(onOneShortLine(GoalRow::nameOf(fromUTF8(goal.snapshot.goal().title))) +
                 " – Vemra Desk");
}

bool DeskWindow::keepGoal(const std::string& goalID) {
  const LoadedGoal* kept = screens_->showAgain(goalID);
  if (kept == nullptr) return false;
  if (recorder_) recorder_->showAgain(screen().graph());
  find_->screenChanged();
  showTitle(*kept);
  return true;
}

void DeskWindow::showFailure(const QString& reason) {
  failure_->setReason(reason);
  centre_->showPage(*failure_);
  find_->screenChanged();
}

void DeskWindow::showNotice(const QString& text, std::function<void()> tryAgain) {
  notice_->show(text, std::move(tryAgain));
}

bool DeskWindow::isHeard() const {
  return QAccessible::isActive();
}

void DeskWindow::announce(const QString& sentence) {
  announcement_->announceSoon(sentence);
}

void DeskWindow::showPerson(PersonKnowledge person) {
  side_->showPerson(std::move(person));
  bringDetails();
}

void DeskWindow::showEvidence(EvidenceKnowledge evidence) {
  side_->showEvidence(std::move(evidence));
  bringDetails();
}

void DeskWindow::showPath(const GoalPathCandidateDTO& path,
                          const std::vector<std::optional<std::string>>& names) {
  side_->showPath(path, names);
  bringDetails();
}

void DeskWindow::noteMissingDetails() {
  detailsAsked_ = false;
}

void DeskWindow::closeDetails() {
  detailsAsked_ = false;
  if (side_->isHidden()) return;
  const bool hadFocus = side_->isAncestorOf(focusWidget());
  side_->hide();
  if (!hadFocus) return;
  const bool isOpenerShown = opener_.page == &screen() && opener_.page->isVisible();
  if (!isOpenerShown || !qt::returnFocusTo(screen(), opener_.place)) focusPage();
}

}  // namespace vemra::desk
