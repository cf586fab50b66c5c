#pragma once

#include "VemraGoalSurface/GoalResultView.hpp"
#include "tests/VemraQt/monkey/Step.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// \file
/// The source of the screen's results: a host, and changes of its results.

namespace vemra::monkey {

using Result = GetGoalSnapshotResponse;

/// The host's reaction to a recorded outcome.
enum class Answer : std::uint8_t {
  atOnce,  ///< it shows the outcome from inside the callback
  later,   ///< it keeps the change until `catchUp`
  drops,   ///< it takes the person off the list from inside the callback
};

/// A host around a screen; it logs all its calls.
class Host {
 public:
  Host(Result newResult, std::function<void()> show)
      : result(std::move(newResult)), show_(std::move(show)) {}
  Host(const Host&) = delete;

  GoalResultView view();
  void show() { show_(); }

  Result result;
  Answer answer = Answer::atOnce;
  std::vector<std::string> log;

 private:
  void record(const GoalOutcomeRecordingInput& input);

  std::function<void()> show_;
};

/// A result of that many people, with names and reasons of every kind.
Result resultOf(std::size_t people);

/// Changes a result by the random numbers of the step: people are added, removed, moved and
/// changed, outcomes are added, paths change. `focused` is the row with the keyboard focus, which
/// is changed more often than others.
void change(Result& result, const Step& step, std::optional<std::size_t> focused);

}  // namespace vemra::monkey
