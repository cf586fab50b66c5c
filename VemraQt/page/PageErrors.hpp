#pragma once

#include <exception>
#include <utility>

#include <QObject>
#include <QScopedValueRollback>

namespace vemra::qt {

/// Catches exceptions from descriptions and actions, and rethrows them where they do no harm.
///
/// Qt's widgets and its accessibility code are not exception-safe: an exception that passes through
/// them leaves a window half shown, or a lock held. So no exception passes into Qt, and an
/// exception from a description does not stop the page.
///
/// - During a call of the host (`hostCall`), the first error is rethrown at the end of that call.
/// - Otherwise, when Qt or an assistive client called, the first error is rethrown once from the
///   event loop, where a host that reimplements `QApplication::notify` can catch it.
///
/// Main thread only.
class PageErrors final : public QObject {
 public:
  /// Runs `work`; false when it threw.
  template <class Work>
  bool attempt(Work&& work) {
    try {
      std::forward<Work>(work)();
      return true;
    } catch (...) {
      keep(std::current_exception());
      return false;
    }
  }

  /// Runs every part of a host's call, even after an earlier part has thrown, and then rethrows the
  /// first error of any part or of any `attempt` inside it.
  template <class... Parts>
  void hostCall(Parts&&... parts) {
    std::exception_ptr first;
    {
      const QScopedValueRollback<std::exception_ptr*> scope(ofHost_, &first);
      (attempt(std::forward<Parts>(parts)), ...);
    }
    if (first) std::rethrow_exception(first);
  }

  /// Rethrows now the error that waits for the event loop, if there is one.
  void rethrowWaiting() {
    if (waiting_) std::rethrow_exception(std::exchange(waiting_, nullptr));
  }

 private:
  void keep(const std::exception_ptr& error);

  std::exception_ptr* ofHost_ = nullptr;  ///< where the running host call keeps its error
  std::exception_ptr waiting_;            ///< to rethrow from the event loop
};

}  // namespace vemra::qt
