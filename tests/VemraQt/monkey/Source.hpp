#pragma once

#include "VemraGoalSurface/GoalResultView.hpp"
#include "tests/VemraQt/monkey/Step.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// \file
/// Where the screen's results come from: a host, and what happens to results at their source.

namespace vemra::monkey {

using Result = GetGoalSnapshotResponse;

/// What a host does when it is asked to record an outcome.
enum class Answer : std::uint8_t {
  atOnce,  ///< it shows the outcome from inside the callback
  later,   ///< it keeps the change until `catchUp`
  drops,   ///< it takes the person off the list from inside the callback
};

/// A host around a screen; it writes down everything it is asked.
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

/// What the figures of the step make of a result: people come, go, move and change, outcomes
/// arrive, paths change. `focused` is the row that has the keyboard, which things happen to more
/// often than to others.
void change(Result& result, const Step& step, std::optional<std::size_t> focused);

}  // namespace vemra::monkey
