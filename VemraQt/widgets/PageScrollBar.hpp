#pragma once

#include <QRect>
#include <QScrollBar>

namespace vemra::qt {

/// A scroll bar that is painted again only when it looks different.
///
/// Qt paints one again for every change of its value and range. On a long page most of them do not
/// move the handle by a pixel, and a style may take longer to paint the groove, with its gradients
/// over the window's whole height, than the rows that have changed.
class PageScrollBar final : public QScrollBar {
 public:
  using QScrollBar::QScrollBar;

 protected:
  void sliderChange(SliderChange change) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// All of its value and range that a style can show.
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
