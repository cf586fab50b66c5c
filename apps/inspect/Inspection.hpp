#pragma once

#include "VemraRecording/Call.hpp"
#include "VemraTesting/Screen.hpp"
#include "apps/inspect/Case.hpp"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vemra::inspect {

/// The result of a step: nil when it was carried out, otherwise the reason why it was not.
using StepResult = std::optional<std::string>;

/// Carries out a case: mounts its screens without a window, in a host that only records the calls of
/// their callbacks.
///
/// Main thread only.
class Inspection {
 public:
  /// Mounts the screen of the case's result.
  explicit Inspection(const Case& inspected);
  Inspection(const Inspection&) = delete;
  Inspection& operator=(const Inspection&) = delete;

  /// Carries out one step. A step that a user could not do changes nothing; the result is the reason.
  StepResult carryOut(const Step& step);

  /// To be called after the last step. Where the case names its calls (it is recorded, or has a step
  /// for a call), a call that no step has named is an error.
  StepResult finish() const;

  /// The screen that is shown; a case may have several.
  const testing::Screen& screen() const { return *screens_[shown_]; }
  testing::Screen& screen() { return *screens_[shown_]; }
  const std::vector<recording::Call>& calls() const { return calls_; }

 private:
  ui::View view(const GetGoalSnapshotResponse& result);

  StepResult nextCallIs(const std::string& call);

  const ui::Environment environment_;
  std::vector<recording::Call> calls_;
  const bool namesCalls_;
  std::size_t callsExpected_ = 0;
  std::vector<std::unique_ptr<testing::Screen>> screens_;  ///< by number
  std::size_t shown_ = 0;
};

}  // namespace vemra::inspect
