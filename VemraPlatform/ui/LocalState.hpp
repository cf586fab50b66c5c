#pragma once

#include "VemraPlatform/Export.hpp"
#include "VemraPlatform/ui/Binding.hpp"

#include <concepts>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

namespace vemra::ui {

/// Holds a composite's state. Internal to the view graph; a composite uses `LocalState`.
///
/// A cell belongs to a node of the graph, not to the view value. It outlives its node while an
/// action or a binding refers to it: a late read returns the last value, and a late write is
/// ignored.
class VEMRA_EXPORT StateCell {
 public:
  /// Gets a call when the value of a cell changes. The view graph is an owner.
  class VEMRA_EXPORT Owner {
   public:
    /// The state in `cell` has another value.
    virtual void stateChanged(StateCell& cell) = 0;

   protected:
    ~Owner() = default;
  };

  virtual ~StateCell() = default;
  /// Whether the state is equal to its initial value.
  virtual bool isInitial() const = 0;

  /// Whether an owner exists; without one, writes are ignored.
  bool isAttached() const { return owner_ != nullptr; }
  /// \param place The value of the node's `NodeID`; 0 while the state has no node.
  void attach(Owner& owner, std::uint64_t place) { owner_ = &owner, place_ = place; }
  /// Ends the notifications; the cell keeps its value.
  void detach() { owner_ = nullptr; }
  /// Keeps the cell alive and writable while it has no node.
  void sleep() { place_ = 0; }
  /// The value of the node's `NodeID`; 0 while the state has no node.
  std::uint64_t place() const { return place_; }

 protected:
  void changed() { owner_->stateChanged(*this); }

 private:
  Owner* owner_ = nullptr;
  std::uint64_t place_ = 0;
};

/// A cell for one type of state, which begins as `State{}` and has `==` (`HasState`).
template <class State>
class StateCellOf final : public StateCell {
 public:
  /// The present value.
  const State& value() const { return value_; }
  bool isInitial() const override { return value_ == State{}; }

  /// Sets one field, and notifies the owner when the value is another one (strings: other bytes).
  template <class Field>
  void set(Field State::*field, Field value) {
    if (!isAttached() || value_.*field == value) return;
    value_.*field = std::move(value);
    changed();
  }

  /// Sets what `change` has made of a copy of the value, and notifies the owner when that is
  /// another value. When `change` throws, nothing has changed.
  template <class Change>
  void update(Change& change) {
    if (!isAttached()) return;
    State next = value_;
    change(next);
    if (!isAttached() || next == value_) return;
    value_ = std::move(next);
    changed();
  }

 private:
  State value_{};
};

/// A composite's own state, for its `body` and its actions.
///
/// Actions may keep copies of it. A write is visible to the next read, even within the same action;
/// writing an equal value changes nothing; the body runs once, when the outermost event has ended.
/// A write after the view has left the screen is ignored. Main thread only.
template <class State>
class LocalState {
 public:
  /// Access to the state in `cell`. The graph makes it; a view gets it as the argument of `body`.
  explicit LocalState(std::shared_ptr<StateCellOf<State>> cell) : cell_(std::move(cell)) {}

  /// The present value.
  const State& operator*() const { return cell_->value(); }
  /// A member of the present value.
  const State* operator->() const { return &cell_->value(); }

  /// Writes one field.
  template <class Field>
  void set(Field State::*field, std::type_identity_t<Field> value) const {
    cell_->set(field, std::move(value));
  }

  /// Writes several fields at once:
  ///
  ///     state.update([&](State& next) {
  ///       next.draft = contact.name;
  ///       next.isEditing = true;
  ///     });
  ///
  /// `change` gets a copy of the state, which replaces the state when `change` has returned, so
  /// that nothing reads a state of which one half is old; when it throws, nothing has changed. A
  /// result that is equal to the state changes nothing. `change` reads and writes its argument
  /// only: a write to this state by another way meanwhile is replaced too.
  template <class Change>
  void update(Change change) const {
    static_assert(std::invocable<Change&, State&> && !std::invocable<Change&, State>,
                  "the function of update takes the state by reference: [](State& state) { ... }");
    cell_->update(change);
  }

  /// A binding to one field, for a control that edits it.
  template <class Field>
  Binding<Field> binding(Field State::*field) const {
    auto cell = cell_;
    return Binding<Field>([cell, field] { return cell->value().*field; },
                          [cell, field](Field value) { cell->set(field, std::move(value)); });
  }

 private:
  std::shared_ptr<StateCellOf<State>> cell_;
};

}  // namespace vemra::ui
