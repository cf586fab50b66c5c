#include "apps/desk/window/DeskWindow.hpp"

#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/FailurePage.hpp"
#include "apps/desk/window/GoalList.hpp"
#include "apps/desk/window/Notice.hpp"
#include "apps/desk/window/SidePane.hpp"
#include "apps/desk/window/Welcome.hpp"

#include <utility>

#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace vemra::desk {

DeskWindow::DeskWindow(std::shared_ptr<StoreEngine> engine, std::optional<std::string> goalID)
    : controller_(std::move(engine), *this) {
  setObjectName("desk");
  setWindowTitle("Vemra Desk");
  // A fixed minimum size; otherwise panes that appear and disappear would change it.
  setMinimumSize(640, 360);
  resize(1080, 760);

  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  notice_ = new Notice;
  column->addWidget(makePanes(), 1);
  column->addWidget(notice_);
  setCentralWidget(page);

  connect(goals_, &GoalList::goalChosen, &controller_, &DeskController::openGoal);
  connect(welcome_, &Welcome::samplesWanted, &controller_, &DeskController::addSampleGoals);
  connect(failure_, &FailurePage::tryAgainWanted, &controller_, &DeskController::loadGoal);
  connect(side_, &SidePane::closed, &controller_, &DeskController::closeDetails);
  connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, &controller_,
          &DeskController::closeDetails);
  controller_.start(std::move(goalID));
}

QWidget* DeskWindow::makePanes() {
  auto* panes = new QSplitter;
  panes->setChildrenCollapsible(false);
  panes->setHandleWidth(1);
  goals_ = new GoalList;
  centre_ = new QStackedWidget;
  screen_ = new qt::ViewWidget;
  welcome_ = new Welcome;
  failure_ = new FailurePage;
  side_ = new SidePane;
  side_->setEnvironment(screen_->environment());
  centre_->addWidget(screen_);
  centre_->addWidget(welcome_);
  centre_->addWidget(failure_);
  for (QWidget* pane : {static_cast<QWidget*>(goals_), static_cast<QWidget*>(centre_),
                        static_cast<QWidget*>(side_)}) {
    panes->addWidget(pane);
  }
  goals_->setMinimumWidth(140);
  centre_->setMinimumWidth(260);
  panes->setStretchFactor(1, 1);
  panes->setSizes({230, 560, 290});
  return panes;
}

void DeskWindow::showGoals(const std::vector<GoalListing>& goals, const std::string& chosen) {
  goals_->setGoals(goals, chosen);
  goals_->setVisible(!goals.empty());
  if (goals.empty()) {
    centre_->setCurrentWidget(welcome_);
  } else if (centre_->currentWidget() == welcome_) {
    centre_->setCurrentWidget(screen_);
  }
}

void DeskWindow::showGoal(const LoadedGoal& goal) {
  const ui::View view = GoalResultView(
      goal.snapshot, [this](const std::string& personRef) { controller_.openPerson(personRef); },
      [this](const std::string& evidenceID) { controller_.openEvidence(evidenceID); },
      [this](const GoalPathCandidateDTO& path) { controller_.openPath(path); },
      [this, id = goal.id, store = goal.store](const GoalOutcomeRecordingInput& input) {
        controller_.record(id, input, store);
      });
  // The id keeps an editor that is open in one goal from appearing in the next.
  screen_->setRoot(view.id(goal.id));
  centre_->setCurrentWidget(screen_);
}

void DeskWindow::keepGoal() {
  centre_->setCurrentWidget(screen_);
}

void DeskWindow::showFailure(const QString& reason) {
  failure_->setReason(reason);
  centre_->setCurrentWidget(failure_);
}

void DeskWindow::showNotice(const QString& text, std::function<void()> tryAgain) {
  notice_->show(text, std::move(tryAgain));
}

void DeskWindow::showPerson(PersonKnowledge person) {
  side_->showPerson(std::move(person));
}

void DeskWindow::showEvidence(EvidenceKnowledge evidence) {
  side_->showEvidence(std::move(evidence));
}

void DeskWindow::showPath(const GoalPathCandidateDTO& path,
                          const std::vector<std::optional<std::string>>& names) {
  side_->showPath(path, names);
}

void DeskWindow::closeDetails() {
  if (side_->isHidden()) return;
  const bool hadFocus = side_->isAncestorOf(focusWidget());
  side_->hide();
  if (hadFocus) screen_->setFocus();
}

}  // namespace vemra::desk
