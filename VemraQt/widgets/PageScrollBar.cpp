#include "VemraQt/widgets/PageScrollBar.hpp"

#include <QStyle>
#include <QStyleOptionSlider>

namespace vemra::qt {

void PageScrollBar::sliderChange(SliderChange change) {
  if (change == SliderOrientationChange || look() != painted_) QScrollBar::sliderChange(change);
}

void PageScrollBar::paintEvent(QPaintEvent* event) {
  painted_ = look();
  QScrollBar::paintEvent(event);
}

PageScrollBar::Look PageScrollBar::look() const {
  QStyleOptionSlider option;
  initStyleOption(&option);
  const QRect handle =
      style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
  return {handle, value() > minimum(), value() < maximum()};
}

}  // namespace vemra::qt
