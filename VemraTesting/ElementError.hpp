#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace vemra::testing {

/// Thrown for an element that a person could not act on: it is missing, disabled, out of view, or
/// of another kind.
///
/// `what()` is for a person: the reason, and details that help to find the element.
class ElementError : public std::runtime_error {
 public:
  /// `context` follows the reason in `what()`, on lines of its own: it begins with a line break, or
  /// is "".
  ElementError(std::string reason, const std::string& context)
      : std::runtime_error(reason + context), reason_(std::move(reason)) {}
  /// One line: `no element with identifier "x"`.
  const std::string& reason() const { return reason_; }

 private:
  std::string reason_;
};

}  // namespace vemra::testing
