#pragma once

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraPlatform/ui/View.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// \file
/// Internal to the screen and not installed: hosts use `GoalResultView`.

namespace vemra {

/// Records the outcome of one suggestion, and corrects a recorded outcome.
///
/// It shows one of three contents: a button while no outcome is recorded, a summary of the outcome
/// in force, or the editor while the user edits. It shows as recorded only the outcome that the
/// snapshot contains, never one that it has just saved. Closing the editor does not clear the
/// state, because opening it overwrites all of it.
struct GoalOutcomeRecordingControl {
  static constexpr std::string_view name = "GoalOutcomeRecordingControl";

  struct State {
    bool isEditing = false;
    GoalOutcomeValue selectedValue = GoalOutcomeValue::wasUseful;
    std::string noteText;
    friend bool operator==(const State&, const State&) = default;  // typed text: byte for byte
  };

  GoalOutcomeSubjectKind subjectKind;
  std::optional<std::string> subjectRef;
  std::optional<GoalOutcomeDTO> effectiveOutcome;
  std::string identifierPrefix;
  /// The host's callback itself, shared by all controls. Null or empty: Save calls nothing.
  std::shared_ptr<const std::function<void(const GoalOutcomeRecordingInput&)>> onRecord;

  ui::View body(const ui::LocalState<State>& state) const;
  /// Its inputs and its state, by the names of their members. vemra-inspect writes them as the
  /// element's keys, which its readers rely on: names, order and meaning are fixed.
  ui::Properties properties(const State& state) const;

 private:
  ui::Children recordedSummary(const GoalOutcomeDTO& outcome,
                               const ui::LocalState<State>& state) const;
  ui::Children editor(const ui::LocalState<State>& state) const;
  void save(const ui::LocalState<State>& state) const;
};

}  // namespace vemra
