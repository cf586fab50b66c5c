#pragma once

#include "VemraPlatform/ui/View.hpp"

#include <functional>
#include <string>
#include <string_view>

/// \file
/// A small screen with every kind of element, for the tests of the harness.

namespace vemra::testing::sample {

enum class Mood { good, fair, bad };
inline std::string_view caseName(Mood mood) {
  return mood == Mood::good ? "good" : mood == Mood::fair ? "fair" : "bad";
}

/// Asks a person for their mood; Send reports the choice and the typed text, and closes.
struct Questionnaire {
  static constexpr std::string_view name = "Questionnaire";
  struct State {
    bool isOpen = true;
    Mood mood = Mood::fair;
    std::string note;
    friend bool operator==(const State&, const State&) = default;
  };
  std::string person = "Ada";
  std::function<void(std::string)> onSend = [](const std::string&) {};

  ui::View body(const ui::LocalState<State>& state) const;
  ui::Properties properties(const State& state) const;
};

/// Two people's questionnaires around buttons that share their title.
ui::View questionnaires(std::function<void(std::string)> log);

}  // namespace vemra::testing::sample
