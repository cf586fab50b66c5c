#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace vemra::desk {

/// Presses and releases a key on a widget.
inline void pressKey(QWidget& widget, Qt::Key key,
                     Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, modifiers);
    QApplication::sendEvent(&widget, &event);
  }
}

}  // namespace vemra::desk
