#pragma once

#include <cstddef>
#include <exception>
#include <type_traits>
#include <utility>
#include <variant>

namespace vemra::task {

/// How a task ended: with its value, or with the exception that left it.
template <class T>
class Result {
 public:
  /// What is kept for a task without a value.
  using Value = std::conditional_t<std::is_void_v<T>, std::monostate, T>;

  /// A task that returned.
  static Result returned(Value value) { return Result(std::in_place_index<0>, std::move(value)); }

  /// A task that threw.
  static Result threw(std::exception_ptr exception) {
    return Result(std::in_place_index<1>, std::move(exception));
  }

  bool hasValue() const noexcept { return ending_.index() == 0; }

  /// The exception that left the task, or null when it returned.
  std::exception_ptr exception() const noexcept {
    const auto* thrown = std::get_if<1>(&ending_);
    return thrown != nullptr ? *thrown : nullptr;
  }

  /// Hands out the value, or throws the very same exception object that left the task.
  T take() && {
    if (auto* thrown = std::get_if<1>(&ending_)) std::rethrow_exception(std::move(*thrown));
    if constexpr (!std::is_void_v<T>) return std::move(*std::get_if<0>(&ending_));
  }

 private:
  template <std::size_t index, class Ending>
  Result(std::in_place_index_t<index> place, Ending&& ending)
      : ending_(place, std::forward<Ending>(ending)) {}

  std::variant<Value, std::exception_ptr> ending_;
};

}  // namespace vemra::task
