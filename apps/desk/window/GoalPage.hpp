#pragma once

#include "VemraQt/PageRows.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/LastInput.hpp"

namespace vemra::desk {

/// A screen whose lines have at most about 75 characters, however wide the window is. The scroll
/// bar stays at the edge of the window. When the keyboard gives the page itself the focus, and no
/// control of it, a ring around the page shows that.
class GoalPage : public qt::ViewWidget {
  Q_OBJECT

 public:
  GoalPage();

  /// The place of the button that was pressed last, by a person or by assistive technology, as if
  /// it had the focus.
  const qt::ReadingPlace& placeOfPress() const { return placeOfPress_; }

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void limitLines();
  /// Shows or hides the ring when the page has become or is no longer the focus widget of its
  /// window.
  void updateRing(Input cause);

  QWidget* ring_;
  bool isFocusOfWindow_ = false;  ///< when the ring was updated last

  qt::ReadingPlace placeOfPress_;
  ui::EventObservation presses_;
};

}  // namespace vemra::desk
