#pragma once

#include <QRect>
#include <QScrollBar>

namespace vemra::qt {

/// A scroll bar that repaints only when its appearance changes.
///
/// Qt repaints a scroll bar for every change of its value and range. On a long page most changes do
/// not move the handle by a pixel, and a style may take longer to paint the groove, with its
/// gradients over the whole height of the window, than to paint the changed rows.
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

  Look painted_;
};

}  // namespace vemra::qt
