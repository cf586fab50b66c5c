#pragma once

#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/LocalState.hpp"

#include <concepts>
#include <type_traits>

/// \file
/// The shapes that the `body` of a composite may have, and the compiler's messages for a body of
/// another shape.

namespace vemra::ui {

class View;

/// A struct whose `body` describes a view from exactly these inputs, each by const reference.
template <class Struct, class... Inputs>
concept HasBodyOf = requires(const Struct& view, const Inputs&... inputs) {
  { view.body(inputs...) } -> std::convertible_to<View>;
};

/// A struct with a nested `State` that begins as `State{}` and can be compared.
template <class Struct>
concept HasState = requires {
  typename Struct::State;
  requires std::default_initializable<typename Struct::State>;
  requires std::equality_comparable<typename Struct::State>;
};

/// A struct whose `body` takes its `LocalState`, alone or followed by the environment.
template <class Struct>
concept StatefulComposite = HasState<Struct> &&
    (HasBodyOf<Struct, LocalState<typename Struct::State>, Environment> ||
     HasBodyOf<Struct, LocalState<typename Struct::State>>);

/// A struct whose `body` takes the environment, or nothing.
template <class Struct>
concept StatelessComposite = HasBodyOf<Struct, Environment> || HasBodyOf<Struct>;

/// A struct with a `body` in one of the four shapes.
template <class Struct>
concept HasBody = StatefulComposite<Struct> || StatelessComposite<Struct>;

/// Has the member whose name the next concept looks for.
struct NamesBody {
  /// Never called.
  void body();
};
/// Has two members called `body`, which makes the name ambiguous, if the struct declares one.
template <class Struct>
struct NamesBodyTwice : Struct, NamesBody {};

/// A struct that declares a function called `body`, whatever it takes and returns, private or not.
template <class Struct>
concept DeclaresBody = std::is_class_v<Struct> && !requires {
  requires std::is_member_object_pointer_v<decltype(&Struct::body)>;
}
&&(requires { &Struct::body; } ||
   (!std::is_final_v<Struct> && !requires { &NamesBodyTwice<Struct>::body; }));

/// Stops the compiler with the reason why a struct that declares a `body` is not a view.
template <class Struct>
constexpr void explainBody() {
  constexpr bool never = !std::is_class_v<Struct>;
  if constexpr (HasBody<Struct>) {
    static_assert(never, "a view is a value: a struct with a body must be copyable");
  } else if constexpr (requires { typename Struct::State; } && !HasState<Struct>) {
    static_assert(never,
                  "a State begins as State{} and is compared: give each member an initial value, "
                  "and the State an operator== (friend bool operator==(const State&, const "
                  "State&) = default;)");
  } else if constexpr (
      requires(Struct & view) { view.body(); } ||
      requires(Struct & view, const Environment& environment) { view.body(environment); }) {
    static_assert(never, "a body is const and returns a View: View body(...) const");
  } else if constexpr (HasState<Struct>) {
    using State = LocalState<typename Struct::State>;
    if constexpr (HasBodyOf<Struct, Environment, State>) {
      static_assert(never, "a body takes its state first, then the environment");
    } else if constexpr (
        requires(Struct & view, const State& state) { view.body(state); } ||
        requires(Struct & view, const State& state, const Environment& environment) {
          view.body(state, environment);
        }) {
      static_assert(never, "a body is const and returns a View: View body(...) const");
    } else {
      static_assert(never,
                    "a public body takes nothing, the environment, its state, or its state and "
                    "the environment: View body(const LocalState<State>&, const Environment&) "
                    "const");
    }
  } else {
    static_assert(never,
                  "without a nested public State, a public body takes nothing or the environment: "
                  "View body() const, or View body(const Environment&) const");
  }
}

}  // namespace vemra::ui
