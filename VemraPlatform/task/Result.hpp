#pragma once

#include <exception>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

namespace vemra::task {

/// How a task ended: with its value, or with the exception that left it.
template <class T>
class Result {
 public:
  /// What is kept for a task that gives no value.
  using Value = std::conditional_t<std::is_void_v<T>, std::monostate, T>;

  /// A task that returned.
  static Result returned(Value value) { return Result(std::move(value), nullptr); }

  /// A task that threw.
  static Result threw(std::exception_ptr exception) {
    return Result(std::nullopt, std::move(exception));
  }

  bool hasValue() const noexcept { return value_.has_value(); }

  /// The exception that left the task, or null when it returned.
  std::exception_ptr exception() const noexcept { return exception_; }

  /// Hands out the value, or throws the very same exception object that left the task.
  T take() && {
    if (!value_) std::rethrow_exception(std::move(exception_));
    if constexpr (!std::is_void_v<T>) return std::move(*value_);
  }

 private:
  Result(std::optional<Value> value, std::exception_ptr exception)
      : value_(std::move(value)), exception_(std::move(exception)) {}

  // Not a variant: GCC 12 takes the alternative that is not there for an uninitialised one.
  std::optional<Value> value_;
  std::exception_ptr exception_;
};

}  // namespace vemra::task
