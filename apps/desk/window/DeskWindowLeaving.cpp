// The questions before the window closes, opens another store or discards outcomes.

#include "apps/desk/window/CloseQuestion.hpp"
#include "apps/desk/window/DeskWindow.hpp"
#include "apps/desk/window/GoalScreens.hpp"
#include "apps/desk/window/Panes.hpp"
#include "apps/desk/window/WaitingBar.hpp"
#include "apps/desk/window/WindowMemory.hpp"

#include <algorithm>
#include <utility>

#include <QCloseEvent>
#include <QMessageBox>

namespace vemra::desk {

Unfinished DeskWindow::unfinished() const {
  return {screens_->drafts(), controller_ ? controller_->waiting() : std::vector<WaitingNote>()};
}

/// Not at each choice of a goal, since it writes the user's settings.
void DeskWindow::rememberGoal() const {
  if (controller_ && controller_->openGoalID()) {
    memory::rememberGoal(file_, *controller_->openGoalID());
  }
}

void DeskWindow::closeEvent(QCloseEvent* event) {
  if (mayClose_ || unfinished().isEmpty()) {
    memory::remember(*this, *panes_);
    rememberGoal();
    QMainWindow::closeEvent(event);
    return;
  }
  event->ignore();
  leaveThen(Leaving::closeWindow, [this] {
    mayClose_ = true;
    close();
  });
}

void DeskWindow::leaveThen(Leaving leaving, std::function<void()> next) {
  const Unfinished what = unfinished();
  if (what.isEmpty()) {
    next();
    return;
  }
  if (question_) return;
  auto* question = new CloseQuestion(leaving, what, this);
  question_ = question;
  connect(question, &CloseQuestion::leaveWanted, this, [this, next] { leave(next); });
  connect(question, &CloseQuestion::waitWanted, this,
          [this, leaving, next] { leaveWhenStored(leaving, next); });
  connect(question, &CloseQuestion::cancelled, this, &DeskWindow::goToDraft);
  question->open();
}

void DeskWindow::goToDraft() {
  const std::optional<GoalScreens::Draft> draft = screens_->draftToFinish();
  if (!draft) return;
  if (draft->page != &screen()) goToGoal(draft->goalID);
  panes_->bringToFront(Panes::Pane::page);
  draft->page->focus(draft->identifier);  // when the page is shown
}

void DeskWindow::leave(std::function<void()> next) {
  whenStored_ = nullptr;
  // The question closes first, which makes the window active once more. An event of the controller,
  // which `next` may destroy, may be running.
  QMetaObject::invokeMethod(
      this,
      [this, next = std::move(next)] {
        if (question_) question_->reject();
        question_ = nullptr;  // it may still exist, and `next` may ask again
        next();
      },
      Qt::QueuedConnection);
}

void DeskWindow::leaveWhenStored(Leaving leaving, std::function<void()> next) {
  const std::vector<WaitingNote> waiting = controller_->waiting();
  std::vector<std::string> left;  // the outcomes that the user knows to stay in the journal
  for (const WaitingNote& note : waiting) {
    if (note.needsDecision && note.unkept.isEmpty()) left.push_back(note.id);
  }
  const bool forAll = std::ranges::none_of(waiting, &WaitingNote::needsDecision);
  auto* wait =
      new CloseWait(leaving, forAll ? WaitFor::everything : WaitFor::outcomesWithoutDecision, this);
  question_ = wait;
  connect(wait, &CloseWait::leaveWanted, this, [this, next] { leave(next); });
  connect(wait, &CloseWait::cancelled, this, [this] { whenStored_ = nullptr; });
  whenStored_ = [this, leaving, left = std::move(left),
                 next = std::move(next)](const std::vector<WaitingNote>& rest) {
    const bool isAsAgreed = std::ranges::all_of(rest, [&](const WaitingNote& note) {
      return note.unkept.isEmpty() && std::ranges::find(left, note.id) != left.end();
    });
    // An outcome that came to need a decision meanwhile is another question.
    leave(isAsAgreed ? next : [this, leaving, next] { leaveThen(leaving, next); });
  };
  wait->open();
  showWaiting(controller_->waiting());  // they may have been stored meanwhile
}

void DeskWindow::askToDiscardWaiting() {
  if (question_) return;
  const std::vector<WaitingNote> waiting = controller_->waiting();
  if (waiting.empty()) return;
  std::vector<std::string> ids;
  ids.reserve(waiting.size());
  for (const WaitingNote& note : waiting) ids.push_back(note.id);
  auto* question = new DiscardQuestion(waiting, this);
  question_ = question;
  connect(question, &DiscardQuestion::discardWanted, this, [this, ids] {
    if (controller_) controller_->discardWaiting(ids);
  });
  question->open();
}

void DeskWindow::showWaiting(const std::vector<WaitingNote>& waiting) {
  waiting_->setWaiting(waiting);
  if (!whenStored_ || !std::ranges::all_of(waiting, &WaitingNote::needsDecision)) return;
  const auto end = std::exchange(whenStored_, nullptr);
  end(waiting);
}

void DeskWindow::noteStored(const std::string& id) {
  const QString news = waiting_->newsOfStored(id);
  if (!news.isEmpty()) announce(news);
}

}  // namespace vemra::desk
