#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace vemra::desk {

/// Presses a key of the keyboard on a widget and lets it go.
inline void pressKey(QWidget& widget, Qt::Key key) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }
}

}  // namespace vemra::desk
