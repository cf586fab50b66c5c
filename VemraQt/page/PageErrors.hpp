#pragma once

#include <exception>
#include <utility>

#include <QObject>
#include <QScopedValueRollback>

namespace vemra::qt {

/// Takes what a description or an action throws, and throws it again where that does no harm.
///
/// Qt's widgets and its side of the accessibility bus have no unwinding: an exception that passes
/// through them leaves a window half shown, or a lock held. So nothing is thrown into Qt, and
/// nothing that a description throws stops the page.
///
/// - In a call of the host (`hostCall`) the first error is thrown at the end of that call.
/// - Otherwise, when Qt or a client of assistive technology called, the first error is thrown once
///   from the event loop: where a host that reimplements `QApplication::notify` catches it.
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

  /// Runs every part of a host's call, whatever the parts before have thrown, and then throws the
  /// first error that any part, or any `attempt` inside it, has met.
  template <class... Parts>
  void hostCall(Parts&&... parts) {
    std::exception_ptr first;
    {
      const QScopedValueRollback<std::exception_ptr*> scope(ofHost_, &first);
      (attempt(std::forward<Parts>(parts)), ...);
    }
    if (first) std::rethrow_exception(first);
  }

 private:
  void keep(const std::exception_ptr& error);

  std::exception_ptr* ofHost_ = nullptr;  ///< where the running call of the host keeps its error
  std::exception_ptr waiting_;            ///< for the event loop
};

}  // namespace vemra::qt
