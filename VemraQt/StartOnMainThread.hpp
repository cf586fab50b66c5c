#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/task/Start.hpp"

#include <concepts>
#include <memory>
#include <utility>

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>

namespace vemra::qt {

/// The checks of `startOnMainThread`, which alone calls them.
class VEMRA_EXPORT MainThreadCall {
  template <class T, std::invocable<task::Result<T>> Callback>
  friend void startOnMainThread(QObject& receiver, task::Task<T> task, Callback callback);

  /// Stops the process when there is no application object, or when it belongs to another thread.
  static void requireMainThread();
  /// Logs the exception that is being handled, and what to do.
  static void logException() noexcept;
};

/// Starts a task and passes its result to the main thread, whichever thread the task ends on.
///
///     qt::startOnMainThread(*this, GoalResultProjectionReader::makeSnapshot(engine, goalID),
///                           [this](task::Result<GoalResultSnapshotV1> loaded) { … });
///
/// - Parameter receiver: when it has been destroyed, the task runs to its end and the callback is
///   not called.
/// - Parameter callback: called once with a `Result<T>`, from the event loop, never before this
///   function returns. It catches what `Result::take` throws, which is the task's failure: an
///   exception that leaves the callback is logged with its text and goes on into the event loop,
///   where it ends the process unless `QApplication::notify` is overridden to catch it.
///
/// Main thread only: stops the process on another thread, and without an application object. The
/// task must end before the application object is destroyed.
template <class T, std::invocable<task::Result<T>> Callback>
void startOnMainThread(QObject& receiver, task::Task<T> task, Callback callback) {
  MainThreadCall::requireMainThread();
  // Only the main thread makes and reads this pair; other threads only pass the pointer on.
  auto call =
      std::make_shared<std::pair<QPointer<QObject>, Callback>>(&receiver, std::move(callback));
  task::start(std::move(task), [call = std::move(call)](task::Result<T> result) mutable {
    auto ending = std::make_shared<task::Result<T>>(std::move(result));
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [call = std::move(call), ending] {
          if (!call->first) return;
          try {
            call->second(std::move(*ending));
          } catch (...) {
            MainThreadCall::logException();
            throw;
          }
        },
        Qt::QueuedConnection);
  });
}

}  // namespace vemra::qt
