#pragma once

#include <QApplication>
#include <QWidget>
#include <QtCore/qtestsupport_core.h>
#include <QtGlobal>

namespace vemra::qttest {

/// Asks the platform to give a shown window the keyboard focus, and runs the event loop until the
/// window has it. Warns when that takes more than five seconds; `QuietQt` then fails the test.
inline void activate(QWidget& window) {
  window.activateWindow();
  if (!QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; })) {
    qWarning("the window did not get the keyboard focus");
  }
}

/// Another window of this program, which has the keyboard focus as long as it exists.
class OtherWindow {
 public:
  OtherWindow() {
    window_.show();
    activate(window_);
  }

 private:
  QWidget window_;
};

}  // namespace vemra::qttest
