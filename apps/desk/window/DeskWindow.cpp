#include "apps/desk/window/DeskWindow.hpp"

#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraGoalSurface/model/GoalResultProjectionReader.hpp"
#include "VemraPlatform/text/Equality.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/store/SampleGoals.hpp"
#include "apps/desk/window/FailurePage.hpp"
#include "apps/desk/window/GoalList.hpp"
#include "apps/desk/window/Notice.hpp"
#include "apps/desk/window/OnMainThread.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/SidePane.hpp"
#include "apps/desk/window/Welcome.hpp"

#include <exception>
#include <utility>

#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace vemra::desk {
namespace {

constexpr int millisecondsBetweenLooks = 400;
constexpr const char* loadingGoals = "The goals could not be loaded.";
constexpr const char* loadingGoal = "The goal could not be loaded.";

/// The error message of a failed task; "" for one that succeeded.
template <class T>
QString failureOf(const task::Result<T>& result) {
  if (result.hasValue()) return {};
  try {
    std::rethrow_exception(result.exception());
  } catch (const std::exception& error) {
    return fromUTF8(error.what());
  } catch (...) {
    return "unknown failure";
  }
}

}  // namespace

DeskWindow::DeskWindow(std::shared_ptr<StoreEngine> engine, std::optional<std::string> goalID)
    : engine_(std::move(engine)), goalID_(std::move(goalID)) {
  setObjectName("desk");
  setWindowTitle("Vemra Desk");
  // Set a fixed minimum size; otherwise panes that appear and disappear would change it.
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

  connect(goals_, &GoalList::goalChosen, this, &DeskWindow::openGoal);
  connect(welcome_, &Welcome::samplesWanted, this, &DeskWindow::addSampleGoals);
  connect(failure_, &FailurePage::tryAgainWanted, this, &DeskWindow::loadSnapshot);
  connect(side_, &SidePane::closed, this, &DeskWindow::closeSide);
  connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this,
          &DeskWindow::closeSide);
  auto* timer = new QTimer(this);
  connect(timer, &QTimer::timeout, this, &DeskWindow::lookForChanges);
  timer->start(millisecondsBetweenLooks);

  lookForChanges();  // before the first load, so that no change is missed in between
  loadGoals();
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

void DeskWindow::loadGoals() {
  startOnMainThread(*this, engine_->goals(), [this](auto result) { takeGoals(std::move(result)); });
}

void DeskWindow::takeGoals(task::Result<std::vector<GoalListing>> result) {
  if (const QString failure = failureOf(result); !failure.isEmpty()) {
    tellLoadingFailure(loadingGoals, failure, [this] { loadGoals(); });
    return;
  }
  told_.remove(loadingGoals);
  const std::vector<GoalListing> goals = std::move(result).take();
  if (!goalID_ && !goals.empty()) goalID_ = goals.front().id;
  goals_->setGoals(goals, goalID_.value_or(""));
  goals_->setVisible(!goals.empty());
  if (goals.empty()) {
    centre_->setCurrentWidget(welcome_);
  } else if (centre_->currentWidget() == welcome_) {
    centre_->setCurrentWidget(screen_);
  }
  if (goalID_) loadSnapshot();
}

void DeskWindow::openGoal(const std::string& goalID) {
  if (goalID_ && text::equal(*goalID_, goalID)) return;
  goalID_ = goalID;
  told_.remove(loadingGoal);
  closeSide();
  loadSnapshot();
}

void DeskWindow::loadSnapshot() {
  const std::string goalID = *goalID_;
  const std::uint64_t store = engine_->storeNumber();
  startOnMainThread(*this, GoalResultProjectionReader::makeSnapshot(engine_, goalID),
                    [this, goalID, store](auto result) {
                      if (engine_->storeNumber() == store) {
                        takeSnapshot(goalID, store, std::move(result));
                      } else if (goalID_ == goalID) {
                        loadSnapshot();  // another store is there; the result may be from either
                      }
                    });
}

void DeskWindow::takeSnapshot(const std::string& goalID, std::uint64_t store,
                              task::Result<GoalResultSnapshotV1> result) {
  if (goalID_ != goalID) return;  // the user has opened another goal meanwhile
  if (const QString failure = failureOf(result); !failure.isEmpty()) {
    if (shownGoalID_ == goalID) {  // keep the screen with its open editors
      centre_->setCurrentWidget(screen_);
      tellLoadingFailure(loadingGoal, failure, [this] { loadSnapshot(); });
    } else {
      failure_->setReason(failure);
      centre_->setCurrentWidget(failure_);
    }
    return;
  }
  told_.remove(loadingGoal);
  const ui::View view = GoalResultView(
      std::move(result).take(), [this](const std::string& personRef) { openPerson(personRef); },
      [this](const std::string& evidenceID) { showEvidence(evidenceID); },
      [this](const GoalPathCandidateDTO& path) { showPath(path); },
      [this, goalID, store](const GoalOutcomeRecordingInput& input) {
        record({goalID, input, newOutcomeID()}, store);
      });
  // The id keeps an editor that is open in one goal from appearing in the next goal.
  screen_->setRoot(view.id(goalID));
  shownGoalID_ = goalID;
  centre_->setCurrentWidget(screen_);
}

void DeskWindow::record(const OutcomeToRecord& outcome, std::uint64_t store) {
  startOnMainThread(*this, engine_->record(outcome.goalID, outcome.input, store, outcome.id),
                    [this, outcome](auto result) {
                      if (const QString failure = failureOf(result); !failure.isEmpty()) {
                        // The outcome's editor has closed, so keep the outcome until a later try
                        // records it.
                        unrecorded_.push_back(outcome);
                        tellFailure("The outcome was not recorded. " + failure);
                        return;
                      }
                      loadSnapshot();
                      if (refreshSide_) refreshSide_();
                    });
}

void DeskWindow::tellFailure(const QString& text, std::function<void()> again) {
  if (unrecorded_.empty()) {
    notice_->show(text, std::move(again));
    return;
  }
  notice_->show(text, [this, again = std::move(again)] {
    for (const OutcomeToRecord& outcome : std::exchange(unrecorded_, {})) {
      record(outcome, engine_->storeNumber());
    }
    if (again) again();
  });
}

void DeskWindow::tellLoadingFailure(const QString& what, const QString& failure,
                                    std::function<void()> again) {
  if (std::exchange(told_[what], failure) == failure) return;
  if (!again) {
    tellFailure(what + ' ' + failure);
    return;
  }
  tellFailure(what + ' ' + failure, [this, what, again = std::move(again)] {
    told_.remove(what);
    again();
  });
}

QString DeskWindow::remarkOnUnrecorded() const {
  if (unrecorded_.empty()) return {};
  return QString(" Outcomes that are not recorded yet: %1.").arg(unrecorded_.size());
}

void DeskWindow::addSampleGoals() {
  startOnMainThread(*this, engine_->import(sampleGoals()), [this](auto result) {
    if (const QString failure = failureOf(result); !failure.isEmpty()) {
      tellFailure("The sample goals were not added. " + failure);
      return;
    }
    loadGoals();
  });
}

template <class Ask, class Show>
void DeskWindow::lookUp(Ask ask, const QString& failure, Show show) {
  refreshSide_ = [this, ask, failure, show] {
    startOnMainThread(*this, ask(), [this, failure, show, wanted = ++sideRequest_](auto result) {
      if (wanted != sideRequest_) return;  // the pane was closed, or shows something else
      if (const QString why = failureOf(result); !why.isEmpty()) {
        tellLoadingFailure(failure, why);
      } else {
        told_.remove(failure);
        show(std::move(result).take());
      }
    });
  };
  told_.remove(failure);
  refreshSide_();
}

void DeskWindow::openPerson(const std::string& personRef) {
  lookUp([this, personRef] { return engine_->person(personRef); },
         "The person could not be looked up.",
         [this](PersonKnowledge person) { side_->showPerson(std::move(person)); });
}

void DeskWindow::showEvidence(const std::string& evidenceID) {
  lookUp([this, evidenceID] { return engine_->evidence(evidenceID); },
         "The source could not be looked up.",
         [this](EvidenceKnowledge evidence) { side_->showEvidence(std::move(evidence)); });
}

void DeskWindow::showPath(const GoalPathCandidateDTO& path) {
  lookUp([this, path,
          goalID = goalID_.value_or("")] { return engine_->names(goalID, path.personRefs); },
         "The people on the path could not be looked up.",
         [this, path](const std::vector<std::optional<std::string>>& names) {
           side_->showPath(path, names);
         });
}

void DeskWindow::closeSide() {
  refreshSide_ = nullptr;
  ++sideRequest_;
  if (side_->isHidden()) return;
  const bool hadFocus = side_->isAncestorOf(focusWidget());
  side_->hide();
  if (hadFocus) screen_->setFocus();
}

void DeskWindow::lookForChanges() {
  if (std::exchange(looking_, true)) return;  // a slow disk gets only one request at a time
  startOnMainThread(*this, engine_->version(), [this](auto result) {
    looking_ = false;
    const QString failure = failureOf(result);
    const QString before = std::exchange(lookingFailed_, failure);
    if (!failure.isEmpty()) {
      if (failure != before) {
        tellFailure("The store could not be read. " + failure + remarkOnUnrecorded());
      }
      return;
    }
    if (!before.isEmpty()) {
      tellFailure("The store is shown as it is now, after it could not be read. " + before +
                  remarkOnUnrecorded());
    }
    const std::int64_t version = std::move(result).take();
    const bool isSame = std::exchange(version_, version).value_or(version) == version;
    if (isSame && before.isEmpty()) return;
    loadGoals();
    if (refreshSide_) refreshSide_();
  });
}

}  // namespace vemra::desk
