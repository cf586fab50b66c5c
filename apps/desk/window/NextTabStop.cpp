#include "apps/desk/window/NextTabStop.hpp"

#include "VemraQt/ViewWidget.hpp"

#include <utility>

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>

namespace vemra::desk {

NextTabStop::NextTabStop(QWidget& message) : QObject(&message), message_(message) {
  connect(qApp, &QApplication::focusChanged, this, &NextTabStop::endWhenLeft);
}

void NextTabStop::expect(QPushButton& button) {
  if (!button_ && !entered_) qApp->installEventFilter(this);
  button_ = &button;
}

void NextTabStop::forget() {
  qApp->removeEventFilter(this);
  button_ = nullptr;
  entered_ = nullptr;
}

bool NextTabStop::hasFocus() const {
  const QWidget* focused = message_.window()->focusWidget();
  return focused && message_.isAncestorOf(focused);
}

void NextTabStop::noteFocus() {
  before_ = message_.window()->focusWidget();
  page_ = nullptr;
  for (QWidget* around = before_; around && !page_; around = around->parentWidget()) {
    page_ = qobject_cast<qt::ViewWidget*>(around);
  }
  if (page_) place_ = qt::readingPlace(*page_);
}

/// Where the focus was before the visit says nothing once the focus has gone elsewhere. In a window
/// that is not active, the control that had the focus keeps it.
void NextTabStop::endWhenLeft() {
  if (hasFocus()) return;
  entered_ = nullptr;
  before_ = nullptr;
  page_ = nullptr;
  if (!button_) qApp->removeEventFilter(this);
}

bool NextTabStop::returnFocus() {
  if (page_ && page_->isVisible() && page_ != before_) return qt::returnFocusTo(*page_, place_);
  if (!before_ || !before_->isVisible()) return false;
  before_->setFocus(Qt::OtherFocusReason);
  return true;
}

void NextTabStop::giveBack() {
  if (hasFocus()) returnFocus();
  forget();
}

bool NextTabStop::eventFilter(QObject* watched, QEvent* event) {
  const auto* widget =
      event->type() == QEvent::KeyPress ? qobject_cast<QWidget*>(watched) : nullptr;
  if (!widget || widget->window() != message_.window()) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() == Qt::Key_Backtab && entered_ && widget == entered_) return returnFocus();
  if (key.key() != Qt::Key_Tab || key.modifiers() != Qt::NoModifier) return false;
  QPushButton* const button = std::exchange(button_, nullptr);
  if (!button || !button->isVisible() || !button->isEnabled() || hasFocus()) return false;
  noteFocus();
  entered_ = button;
  button->setFocus(Qt::TabFocusReason);
  return true;
}

}  // namespace vemra::desk
