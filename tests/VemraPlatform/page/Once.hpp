#pragma once

#include "VemraPlatform/ui/View.hpp"

#include <string>
#include <string_view>

namespace vemra::page::sample {

/// A button that turns into a text when it is pressed.
struct Once {
  static constexpr std::string_view name = "Once";
  struct State {
    bool isDone = false;
    friend bool operator==(const State&, const State&) = default;
  };
  std::string id;  ///< title and identifier

  ui::View body(const ui::LocalState<State>& state) const {
    if (state->isDone) return ui::Text(ui::verbatim("done"));
    return ui::Button(ui::verbatim(id), [state] { state.set(&State::isDone, true); })
        .accessibilityIdentifier(id);
  }
  ui::Properties properties(const State&) const { return {}; }
};

}  // namespace vemra::page::sample
