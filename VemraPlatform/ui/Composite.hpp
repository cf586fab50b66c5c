#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/BodyShape.hpp"
#include "VemraPlatform/ui/Environment.hpp"
#include "VemraPlatform/ui/LocalState.hpp"
#include "VemraPlatform/ui/Property.hpp"

#include <concepts>
#include <memory>
#include <string_view>
#include <utility>

namespace vemra::ui {

class View;

/// A plain struct with a `body`, in one of four shapes:
///
///     View body() const;
///     View body(const Environment&) const;
///     View body(const LocalState<State>&) const;   // with a nested `struct State`
///     View body(const LocalState<State>&, const Environment&) const;
///
/// For a body of another shape, the compiler's message says which rule it breaks. Of several
/// bodies, the graph calls the one that takes most.
///
/// It may have a name (`static constexpr std::string_view name`) and properties (`Properties
/// properties() const`, or `properties(const State&)`). The screen does not depend on either; they
/// are for developers and for tools. For a composite with properties, vemra-inspect writes an
/// element with its name and with the properties as keys; scripts that read these reports rely on
/// the keys.
template <class Struct>
concept CompositeView = HasBody<Struct> && std::copy_constructible<Struct>;
// Check `HasBody` first: whether a class that can be constructed from a view is copyable may depend
// on whether the class itself is a view.

/// A struct that declares a `body` and is not a composite: using it as a view does not compile.
template <class Struct>
concept MisshapenComposite = !CompositeView<Struct> && DeclaresBody<Struct>;

/// A type-erased composite, as the view graph sees it.
class VEMRA_EXPORT AnyComposite {
 public:
  virtual ~AnyComposite() = default;
  /// An address that is unique for each type: two composites have the same type when these are
  /// equal.
  virtual const void* type() const = 0;
  /// The struct's `name`, or "View".
  virtual std::string_view name() const = 0;
  /// A new cell in its initial state, or nullptr when the composite has no state.
  virtual std::shared_ptr<StateCell> makeState() const = 0;
  /// The struct's `body`. `state` is a cell of `makeState`.
  virtual View body(const std::shared_ptr<StateCell>& state, const Environment&) const = 0;
  /// The struct's `properties`. Without a `state`, those that depend on one are left out.
  virtual Properties properties(const StateCell* state) const = 0;
};

/// A composite of one type. View.hpp makes it from a struct.
template <class Struct>
class ErasedComposite final : public AnyComposite {
 public:
  /// Takes over the struct.
  explicit ErasedComposite(Struct value) : value_(std::move(value)) {}

  const void* type() const override {
    static constexpr char address = 0;
    return &address;
  }

  std::string_view name() const override {
    // Takes the address, so that a non-static member called `name` does not count.
    if constexpr (requires { std::string_view(*&Struct::name); }) {
      return Struct::name;
    } else {
      return "View";
    }
  }

  std::shared_ptr<StateCell> makeState() const override {
    if constexpr (StatefulComposite<Struct>) {
      return std::make_shared<StateCellOf<typename Struct::State>>();
    } else {
      return nullptr;
    }
  }

  View body(const std::shared_ptr<StateCell>& state, const Environment& environment) const override;

  Properties properties(const StateCell* state) const override {
    if constexpr (StatefulComposite<Struct>) {
      using Cell = StateCellOf<typename Struct::State>;
      if constexpr (requires(const Cell& cell) { value_.properties(cell.value()); }) {
        // A node that is being made has no state yet.
        if (state) return value_.properties(static_cast<const Cell*>(state)->value());
      }
    } else if constexpr (requires { value_.properties(); }) {
      return value_.properties();
    }
    return {};
  }

 private:
  Struct value_;
};

}  // namespace vemra::ui
