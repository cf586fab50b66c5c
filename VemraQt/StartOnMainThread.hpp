#pragma once

#include "VemraPlatform/task/Start.hpp"

#include <concepts>
#include <memory>
#include <utility>

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>

namespace vemra::qt {

/// Starts a task and passes its result to the main thread, whichever thread the task ends on.
///
///     qt::startOnMainThread(*this, GoalResultProjectionReader::makeSnapshot(engine, goalID),
///                           [this](task::Result<GoalResultSnapshotV1> loaded) { … });
///
/// - Parameter receiver: when it has been destroyed, the task runs to its end and the callback is not
///   called.
/// - Parameter callback: called once with a `Result<T>`, from the event loop, never before this
///   function returns. An exception of it is one of the event loop's: Qt does not handle those.
///
/// Main thread only. The task must end before the application object is destroyed.
template <class T, std::invocable<task::Result<T>> Callback>
void startOnMainThread(QObject& receiver, task::Task<T> task, Callback callback) {
  // Only the main thread makes and reads this pair; other threads only pass the pointer on.
  auto call =
      std::make_shared<std::pair<QPointer<QObject>, Callback>>(&receiver, std::move(callback));
  task::start(std::move(task), [call = std::move(call)](task::Result<T> result) mutable {
    auto ending = std::make_shared<task::Result<T>>(std::move(result));
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [call = std::move(call), ending] {
          if (call->first) call->second(std::move(*ending));
        },
        Qt::QueuedConnection);
  });
}

}  // namespace vemra::qt
