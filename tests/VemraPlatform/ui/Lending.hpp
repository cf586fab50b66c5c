#pragma once

#include "tests/VemraPlatform/ui/Sample.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vemra::ui::sample {

using CounterState = LocalState<Counter::State>;

/// A view that gives the test its state.
struct Lending {
  static constexpr std::string_view name = "Lending";
  using State = Counter::State;
  std::shared_ptr<std::optional<CounterState>> lent;
  std::function<void(const CounterState&)> whileDescribing = {};

  View body(const CounterState& state) const {
    lent->emplace(state);
    if (whileDescribing) whileDescribing(state);
    return Text(verbatim(std::to_string(state->count)));
  }
};

inline std::shared_ptr<std::optional<CounterState>> borrowed() {
  return std::make_shared<std::optional<CounterState>>();
}

inline View column(Children children) {
  return VStack(HorizontalAlignment::leading, 0, std::move(children));
}

}  // namespace vemra::ui::sample
