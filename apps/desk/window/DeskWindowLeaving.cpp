// The questions before the window closes, opens another store or discards outcomes.

#include "apps/desk/window/CloseQuestion.hpp"
#include "apps/desk/window/DeskWindow.hpp"
#include "apps/desk/window/GoalScreens.hpp"
#include "apps/desk/window/WaitingBar.hpp"

#include <utility>

#include <QCloseEvent>
#include <QMessageBox>

namespace vemra::desk {

Unfinished DeskWindow::unfinished() const {
  return {screens_->drafts(), controller_ ? controller_->waiting() : std::vector<WaitingNote>()};
}

void DeskWindow::closeEvent(QCloseEvent* event) {
  if (mayClose_ || unfinished().isEmpty()) {
    QMainWindow::closeEvent(event);
    return;
  }
  event->ignore();
  leaveThen([this] { closeAnyway(); });
}

void DeskWindow::leaveThen(std::function<void()> next) {
  const Unfinished what = unfinished();
  if (what.isEmpty()) {
    next();
    return;
  }
  if (question_) return;
  auto* question = new CloseQuestion(what, this);
  question_ = question;
  connect(question, &CloseQuestion::closeWanted, this, std::move(next));
  connect(question, &CloseQuestion::waitWanted, this, &DeskWindow::closeWhenStored);
  question->open();
}

void DeskWindow::closeAnyway() {
  mayClose_ = true;
  // The question closes first, which makes the window active once more.
  QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
}

void DeskWindow::closeWhenStored() {
  auto* wait = new CloseWait(this);
  question_ = wait;
  closesWhenStored_ = true;
  connect(wait, &CloseWait::closeWanted, this, &DeskWindow::closeAnyway);
  connect(wait, &CloseWait::cancelled, this, [this] { closesWhenStored_ = false; });
  wait->open();
  showWaiting(controller_->waiting());  // it may have been stored meanwhile
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
  if (waiting.empty() && closesWhenStored_) closeAnyway();
}

}  // namespace vemra::desk
