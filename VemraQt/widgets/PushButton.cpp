#include "VemraQt/widgets/PushButton.hpp"

#include "VemraQt/widgets/ControlStyle.hpp"

#include <utility>

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace vemra::qt {

PushButton::PushButton(QWidget* parent, const PageContext& page)
    : QPushButton(parent), ElementWidget(page) {
  setFocusPolicy(Qt::ClickFocus);  // the page moves the focus by Tab itself
  setAutoDefault(false);
  connect(this, &QPushButton::clicked, this, [this] {
    if (node()) deliver(ui::Press{});
  });
}

void PushButton::updateTo(const page::Node& leaf, const TextShape& shape) {
  if (!shape.hasPartsOf(shape_)) {
    QString title = labelOf(leaf, shape);
    if (title.contains(u'&')) title.replace(u'&', QLatin1String("&&"));
    if (text() != title) setText(title);
  }
  shape_ = shape;
  if (std::exchange(style_, leaf.element.buttonStyle()) != style_) {
    style_ == ui::ButtonStyle::plain ? setCursor(Qt::PointingHandCursor) : unsetCursor();
  }
  update();
}

void PushButton::endInteraction() {
  if (isDown()) setDown(false);
}

void PushButton::paintEvent(QPaintEvent* event) {
  QStylePainter painter(this);
  const bool isPlain = style_ == ui::ButtonStyle::plain;
  isPlain ? paintPlain(painter, event->rect()) : paintFramed(painter, event->rect());
  if (hasFocus()) {
    drawFocusRing(painter, rect(), theme(), isPlain ? RingAround::text : RingAround::frame);
  }
}

void PushButton::paintPlain(QPainter& painter, const QRect& visible) {
  const QColor color = isEnabled() ? theme().link() : theme().disabledText();
  painter.setPen(color);
  const QRect inside = rect().marginsRemoved(QMargins(4, 0, 4, 0));
  const int above = (inside.height() - shape_.size().height()) / 2;
  const QRect lines(inside.x(), inside.y() + above, inside.width(), shape_.size().height());
  shape_.draw(painter, lines, visible, layoutDirection());
  if (isEnabled() && (underMouse() || isDown())) {
    shape_.underline(painter, lines, visible, layoutDirection());
  }
}

void PushButton::paintFramed(QPainter& painter, const QRect& visible) {
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  frameIn(theme(), option);
  option.state &= ~QStyle::State_HasFocus;
  QStyle& drawing = controlStyle(*this, theme());
  drawing.drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
  strengthenFrame(painter, *this, drawing, theme());
  painter.setPen(option.palette.color(QPalette::ButtonText));
  const int above = (height() - shape_.size().height()) / 2;
  shape_.draw(painter, QRect(0, above, width(), shape_.size().height()), visible, layoutDirection(),
              Qt::AlignHCenter);
}

void PushButton::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (scrollIn() && !event->isAutoRepeat()) click();
      return;
    case Qt::Key_Space:
      if (scrollIn()) QPushButton::keyPressEvent(event);
      return;
    default:
      event->ignore();  // arrow keys move among the rows or scroll the page
  }
}

void PushButton::enterEvent(QEnterEvent* event) {
  QPushButton::enterEvent(event);
  update();
}

void PushButton::leaveEvent(QEvent* event) {
  QPushButton::leaveEvent(event);
  update();
}

}  // namespace vemra::qt
