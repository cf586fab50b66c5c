#pragma once

#include "VemraPlatform/task/Start.hpp"

#include <memory>
#include <utility>

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>

namespace vemra::desk {

/// Starts a task and brings its end to the main thread, wherever the task ends.
///
/// - Parameter receiver: whose affair it is: when it is gone by then, nobody is told.
/// - Parameter callback: called with a `Result<T>` from the event loop, never before this returns.
///
/// Main thread only. The task must have ended before the application object goes.
template <class T, class Callback>
void startOnMainThread(QObject& receiver, task::Task<T> task, Callback callback) {
  // Made and read on the main thread only; on the way it is merely carried.
  auto told = std::make_shared<std::pair<QPointer<QObject>, Callback>>(&receiver, callback);
  task::start(std::move(task), [told = std::move(told)](task::Result<T> result) mutable {
    auto ending = std::make_shared<task::Result<T>>(std::move(result));
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [told = std::move(told), ending] {
          if (told->first) told->second(std::move(*ending));
        },
        Qt::QueuedConnection);
  });
}

}  // namespace vemra::desk
