#pragma once

#include "VemraPlatform/ui/ViewValue.hpp"

#include <cstdint>
#include <optional>
#include <utility>

/// \file
/// Content that depends on a condition or on an optional value.

namespace vemra::ui {

/// Conditional content. Every branch is an identity of its own:
///
///     If(isEditing, [&] { return editor(); })
///         .elseIf(isRecorded, [&] { return summary(); })
///         .otherwise([&] { return startButton(); })
///
/// Without `otherwise`, a false condition shows nothing and keeps the slot. Only the taken branch
/// is made.
class VEMRA_EXPORT If : public View {
 public:
  /// Shows what `make` returns when the condition holds; otherwise `make` is not called.
  template <class Make>
  If(bool condition, Make make) {
    branch(condition, make);
  }

  /// Adds a branch that is taken when no earlier one is and its condition holds.
  template <class Make>
  If elseIf(bool condition, Make make) const {
    If next = *this;
    next.branch(condition, make);
    return next;
  }

  /// Adds the branch that is taken when no other one is.
  template <class Make>
  View otherwise(Make make) const {
    return elseIf(true, make);
  }

 private:
  template <class Make>
  void branch(bool condition, Make& make) {
    ++branches_;
    if (taken_ || !condition) return;
    taken_ = true;
    show(make(), branches_);
  }
  void show(View view, std::uint64_t branch);

  bool taken_ = false;
  std::uint64_t branches_ = 0;
};

/// Content for an optional value; an absent value keeps the slot.
template <class Value, class Make>
If IfPresent(const std::optional<Value>& value, Make make) {
  return If(value.has_value(), [&]() -> View { return make(*value); });
}

}  // namespace vemra::ui
