#pragma once

#include <QRect>
#include <QRegion>
#include <QScrollBar>
#include <QStyle>

namespace vemra::qt {

/// A scroll bar that repaints only what changes of its appearance.
///
/// Qt repaints a whole scroll bar for every change of its value and range. On a long page most
/// changes do not move the handle by a pixel, and the others move it by a few. But a style may take
/// longer to paint the groove, with its gradients over the whole height of the window, than to paint
/// the changed rows: Qt divides such long gradients among threads, and waits for them.
class PageScrollBar final : public QScrollBar {
 public:
  using QScrollBar::QScrollBar;

 protected:
  void sliderChange(SliderChange change) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The visible part of the scroll bar's value and range.
  struct Look {
    QRect handle;
    bool canGoUp = false;
    bool canGoDown = false;
    friend bool operator==(const Look&, const Look&) = default;
  };
  Look look() const;
  /// The part that looks different.
  QRegion between(const Look& before, const Look& after) const;
  QRect part(QStyle::SubControl control) const;

  Look painted_;
};

}  // namespace vemra::qt
