#pragma once

#include <exception>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

namespace vemra::task {

/// The end of a task: its value, or the exception that it threw.
template <class T>
class Result {
 public:
  /// `T`, or `std::monostate` for a task without a value.
  using Value = std::conditional_t<std::is_void_v<T>, std::monostate, T>;

  /// A task that returned.
  static Result returned(Value value) { return Result(std::move(value), nullptr); }

  /// A task that threw.
  static Result threw(std::exception_ptr exception) {
    return Result(std::nullopt, std::move(exception));
  }

  /// Whether there is a value rather than an exception.
  bool hasValue() const noexcept { return value_.has_value(); }

  /// The exception that the task threw, or null when it returned.
  std::exception_ptr exception() const noexcept { return exception_; }

  /// Returns the value, or rethrows the task's exception: the same object.
  T take() && {
    if (!value_) std::rethrow_exception(std::move(exception_));
    if constexpr (!std::is_void_v<T>) return std::move(*value_);
  }

 private:
  Result(std::optional<Value> value, std::exception_ptr exception)
      : value_(std::move(value)), exception_(std::move(exception)) {}

  // Not a variant: GCC 12 warns that the unused alternative is uninitialised.
  std::optional<Value> value_;
  std::exception_ptr exception_;
};

}  // namespace vemra::task
