#include "VemraQt/widgets/TextLabel.hpp"

#include <QPaintEvent>
#include <QPainter>

namespace vemra::qt {

TextLabel::TextLabel(QWidget* parent, const PageContext& page)
    : QLabel(parent), ElementWidget(page) {
  setTextFormat(Qt::PlainText);
  setFocusPolicy(Qt::NoFocus);
}

void TextLabel::updateTo(const page::Node& leaf, const TextShape& shape) {
  if (!shape.hasPartsOf(shape_)) {
    const QString shown = labelOf(leaf, shape);
    if (text() != shown) setText(shown);
  }
  shape_ = shape;
  margins_ = overhang(leaf.element, shape);
  foreground_ = leaf.element.style().foreground;
  update();
}

void TextLabel::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setPen(isEnabled() ? theme().text(foreground_) : theme().disabledText());
  shape_.draw(painter, rect().marginsRemoved(margins_), event->rect(), layoutDirection());
}

}  // namespace vemra::qt
