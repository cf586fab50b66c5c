#include "VemraQt/widgets/PageScrollBar.hpp"

#include "VemraQt/widgets/ElementWidget.hpp"

#include <QStyleOptionSlider>

namespace vemra::qt {

namespace {

/// How far a style may draw around the handle: its frame or a shadow.
constexpr int edge = 3;

}  // namespace

void PageScrollBar::sliderChange(SliderChange change) {
  if (change == SliderOrientationChange) {
    QScrollBar::sliderChange(change);
  } else if (const Look now = look(); now != painted_) {
    update(between(painted_, now));
  }
}

void PageScrollBar::paintEvent(QPaintEvent* event) {
  painted_ = look();
  QScrollBar::paintEvent(event);
}

PageScrollBar::Look PageScrollBar::look() const {
  return {part(QStyle::SC_ScrollBarSlider), value() > minimum(), value() < maximum()};
}

QRegion PageScrollBar::between(const Look& before, const Look& after) const {
  const auto around = [](const QRect& handle) { return handle.adjusted(-edge, -edge, edge, edge); };
  QRegion changed;
  if (before.handle != after.handle) {
    // Styles may draw the groove differently on each side of the handle; Fusion does not.
    changed = isDrawnByFusion(*this) ? QRegion(around(before.handle)) + around(after.handle)
                                     : QRegion(around(before.handle | after.handle));
  }
  if (before.canGoUp != after.canGoUp) changed += part(QStyle::SC_ScrollBarSubLine);
  if (before.canGoDown != after.canGoDown) changed += part(QStyle::SC_ScrollBarAddLine);
  return changed;
}

QRect PageScrollBar::part(QStyle::SubControl control) const {
  QStyleOptionSlider option;
  initStyleOption(&option);
  return style()->subControlRect(QStyle::CC_ScrollBar, &option, control, this);
}

}  // namespace vemra::qt
