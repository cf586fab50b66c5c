#pragma once

#include <functional>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace vemra::desk {

/// Runs the event loop until the condition is met, for at most half a minute. Returns whether it
/// was met.
inline bool becomes(const std::function<bool()>& condition) {
  QElapsedTimer timer;
  timer.start();
  while (timer.elapsed() < 30'000) {
    QCoreApplication::processEvents();
    if (condition()) return true;
    QThread::msleep(5);
  }
  return false;
}

}  // namespace vemra::desk
