#include "apps/desk/window/FocusRing.hpp"

#include "apps/desk/window/Ink.hpp"
#include "apps/desk/window/KeyInView.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <QKeyEvent>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace vemra::desk {

void drawFocusRing(QPainter& painter, const QWidget& widget) {
  constexpr double width = 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(themeOf(widget.palette()).focusRing(), width));
  painter.setBrush(Qt::NoBrush);
  const double inset = width / 2;
  painter.drawRoundedRect(QRectF(widget.rect()).adjusted(inset, inset, -inset, -inset), 4, 4);
  painter.restore();
}

QuietButton::QuietButton(const QString& title, QWidget* parent) : QToolButton(parent) {
  setText(asButtonTitle(title));
  setAutoRaise(true);
  setFocusPolicy(Qt::StrongFocus);
  scrollInBeforeKeys(*this);
}

void QuietButton::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && !event->isAutoRepeat()) {
    click();
  } else {
    QToolButton::keyPressEvent(event);
  }
}

void QuietButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionToolButton option;
  initStyleOption(&option);
  option.state &= ~QStyle::State_HasFocus;
  option.text.clear();
  painter.drawComplexControl(QStyle::CC_ToolButton, option);
  option.text = text();
  option.rect = titleRect();
  painter.drawControl(QStyle::CE_ToolButtonLabel, option);
  drawBesideTitle(painter);
  if (hasFocus()) drawFocusRing(painter, *this);
}

void QuietButton::drawBesideTitle(QPainter&) const {}

}  // namespace vemra::desk
