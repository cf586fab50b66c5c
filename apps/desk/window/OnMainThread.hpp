#pragma once

#include "VemraPlatform/task/Start.hpp"

#include <memory>
#include <utility>

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>

namespace vemra::desk {

/// Starts a task and passes its result to the main thread, whichever thread the task ends on.
///
/// - Parameter receiver: the context object; the callback is dropped when it has been destroyed.
/// - Parameter callback: called with a `Result<T>` from the event loop, never before this returns.
///
/// Main thread only. The task must end before the application object is destroyed.
template <class T, class Callback>
void startOnMainThread(QObject& receiver, task::Task<T> task, Callback callback) {
  // Only the main thread makes and reads this pair; other threads only pass the pointer on.
  auto call = std::make_shared<std::pair<QPointer<QObject>, Callback>>(&receiver, callback);
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

}  // namespace vemra::desk
