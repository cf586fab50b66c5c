#pragma once

#include <concepts>
#include <memory>
#include <type_traits>
#include <utility>

namespace vemra::documents {

/// A reference to a function or lambda, for parameters that are called before the callee returns.
///
/// Unlike `std::function` it copies and allocates nothing: a document has millions of values, and
/// each is read by such a call. It must not outlive the expression that makes the lambda.
template <class Signature>
class FunctionReference;

template <class Result, class... Arguments>
class FunctionReference<Result(Arguments...)> {
 public:
  template <class Function>
  requires(!std::same_as<Function, FunctionReference> &&
           std::is_invocable_r_v<Result, const Function&, Arguments...>)
      FunctionReference(const Function& function)
      : function_(std::addressof(function)), call_([](const void* target, Arguments... arguments) {
          return (*static_cast<const Function*>(target))(std::forward<Arguments>(arguments)...);
        }) {}

  Result operator()(Arguments... arguments) const {
    return call_(function_, std::forward<Arguments>(arguments)...);
  }

 private:
  const void* function_;
  Result (*call_)(const void*, Arguments...);
};

}  // namespace vemra::documents
