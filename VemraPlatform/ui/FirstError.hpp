#pragma once

#include <exception>
#include <utility>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

/// Keeps the first exception while the graph handles requests, because an exception must not stop
/// the others; rethrows it at the end.
class FirstError {
 public:
  /// Keeps the exception that is being caught, unless an earlier one is kept.
  void remember() {
    if (!error_) error_ = std::current_exception();
  }

  /// Rethrows the kept exception and forgets it. Does nothing without one.
  void rethrow() {
    if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
  }

 private:
  std::exception_ptr error_;
};

}  // namespace vemra::ui
