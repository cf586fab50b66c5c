#include "apps/desk/window/LinkLabel.hpp"

#include "apps/desk/window/FocusRing.hpp"
#include "apps/desk/window/KeyInView.hpp"

#include <utility>

#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace vemra::desk {
namespace {

class AccessibleLink final : public QAccessibleWidget {
 public:
  explicit AccessibleLink(LinkLabel& link) : QAccessibleWidget(&link, QAccessible::Link) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? link().text() : QAccessibleWidget::text(kind);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.linked = true;
    return state;
  }
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& action) override {
    if (action == pressAction()) {
      Q_EMIT link().pressed();
    } else {
      QAccessibleWidget::doAction(action);
    }
  }

 private:
  LinkLabel& link() const { return *static_cast<LinkLabel*>(widget()); }
};

QAccessibleInterface* makeLink(const QString&, QObject* object) {
  auto* link = qobject_cast<LinkLabel*>(object);
  return link != nullptr ? new AccessibleLink(*link) : nullptr;
}

}  // namespace

LinkLabel::LinkLabel(const QString& text, TextRole role) : RoleLabel(text, role, TextInk::ofLinks) {
  static const bool installed = (QAccessible::installFactory(makeLink), true);
  static_cast<void>(installed);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
}

void LinkLabel::paintEvent(QPaintEvent* event) {
  RoleLabel::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  drawFocusRing(painter, *this);
}

void LinkLabel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) pressedAt_ = event->pos();
  RoleLabel::mousePressEvent(event);
}

/// A drag selects text.
void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
  RoleLabel::mouseReleaseEvent(event);
  if (event->button() != Qt::LeftButton) return;
  const auto pressedAt = std::exchange(pressedAt_, std::nullopt);
  if (!pressedAt || !rect().contains(event->pos())) return;
  const int distance = (event->pos() - *pressedAt).manhattanLength();
  if (distance < QApplication::startDragDistance()) Q_EMIT pressed();
}

/// The first click has pressed the link; the second one selects a word.
void LinkLabel::mouseDoubleClickEvent(QMouseEvent* event) {
  RoleLabel::mouseDoubleClickEvent(event);
  pressedAt_.reset();
}

/// Keys with Ctrl, Alt or Meta are commands of the window.
void LinkLabel::keyPressEvent(QKeyEvent* event) {
  const bool isPlain =
      !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
  switch (isPlain ? event->key() : 0) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Select:
      scrollIn(*this);
      if (!event->isAutoRepeat()) Q_EMIT pressed();
      return;
    default:
      RoleLabel::keyPressEvent(event);
  }
}

void LinkLabel::enterEvent(QEnterEvent* event) {
  RoleLabel::enterEvent(event);
  underline(true);
}

void LinkLabel::leaveEvent(QEvent* event) {
  RoleLabel::leaveEvent(event);
  underline(false);
}

void LinkLabel::focusInEvent(QFocusEvent* event) {
  RoleLabel::focusInEvent(event);
  const auto reason = event->reason();
  if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) scrollIn(*this);
}

void LinkLabel::underline(bool on) {
  QFont own = font();
  own.setUnderline(on);
  setFont(own);
}

}  // namespace vemra::desk
