#include "VemraQt/StartOnMainThread.hpp"

#include <exception>

#include <QDebug>

namespace vemra::qt {

void logThrowingCallback() noexcept {
  const char* const way =
      "Catch it in the callback: Result::take rethrows the exception of the task.";
  try {
    throw;
  } catch (const std::exception& error) {
    qCritical("The callback of qt::startOnMainThread threw: %s. %s", error.what(), way);
  } catch (...) {
    qCritical("The callback of qt::startOnMainThread threw an exception. %s", way);
  }
}

}  // namespace vemra::qt
