#include "VemraQt/StartOnMainThread.hpp"

#include <exception>

#include <QCoreApplication>
#include <QDebug>
#include <QThread>

namespace vemra::qt {

void MainThreadCall::requireMainThread() {
  const QCoreApplication* const application = QCoreApplication::instance();
  if (!application) {
    qFatal("qt::startOnMainThread needs an application object: make the QApplication first.");
  }
  if (QThread::currentThread() != application->thread()) {
    qFatal(
        "qt::startOnMainThread was called off the main thread. Call it on the thread of the "
        "application object; the task itself may run on any.");
  }
}

void MainThreadCall::logException() noexcept {
  const char* const advice =
      "Catch it in the callback: Result::take rethrows the exception of the task.";
  try {
    throw;
  } catch (const std::exception& error) {
    qCritical("The callback of qt::startOnMainThread threw: %s. %s", error.what(), advice);
  } catch (...) {
    qCritical("The callback of qt::startOnMainThread threw an exception. %s", advice);
  }
}

}  // namespace vemra::qt
