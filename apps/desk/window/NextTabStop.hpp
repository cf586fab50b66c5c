#pragma once

#include "VemraQt/PageRows.hpp"

#include <QObject>
#include <QPointer>

class QPushButton;
class QWidget;

namespace vemra::qt {
class ViewWidget;
}  // namespace vemra::qt

namespace vemra::desk {

/// Makes a button of a message the next Tab stop of the window, wherever the focus is, and gives
/// the focus back afterwards. Otherwise a person who uses the keyboard alone would have to pass the
/// whole page between a failure and "Try again".
///
/// Main thread only.
class NextTabStop : public QObject {
  Q_OBJECT

 public:
  /// - Parameter message: the widget that holds the button, and owns this object.
  explicit NextTabStop(QWidget& message);

  /// The next Tab in the window goes to that button, if it is visible then. Shift+Tab on the button
  /// goes back, until the focus has left the message.
  void expect(QPushButton& button);
  /// Tab is as usual.
  void forget();
  /// When the message has the focus, gives it to the control that had it before that Tab. Call this
  /// before the message is hidden. Qt chooses a control when that one is not visible any more.
  void giveBack();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool hasFocus() const;
  void noteFocus();
  void endWhenLeft();
  bool returnFocus();

  QWidget& message_;
  QPointer<QPushButton> button_;   ///< gets the focus with the next Tab; none: Tab is as usual
  QPointer<QPushButton> entered_;  ///< got it with Tab, so that Shift+Tab goes back
  /// \name The control that had the focus before that Tab @{
  QPointer<QWidget> before_;
  QPointer<qt::ViewWidget> page_;  ///< its page; an element's widget may show another one later
  qt::ReadingPlace place_;
  /// @}
};

}  // namespace vemra::desk
