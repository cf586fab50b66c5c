#pragma once

#include <exception>
#include <utility>

/// \file
/// Internal to the view graph.

namespace vemra::ui {

/// The first exception of what is being handled. It is kept, because an exception must not stop the
/// rest, and thrown when everything has settled.
class FirstError {
 public:
  /// Keeps the exception that is being caught, unless there is one already.
  void remember() {
    if (!error_) error_ = std::current_exception();
  }

  /// Throws the exception that was kept, and forgets it. Does nothing without one.
  void rethrow() {
    if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
  }

 private:
  std::exception_ptr error_;
};

}  // namespace vemra::ui
