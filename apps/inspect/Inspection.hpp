#pragma once

#include "VemraTesting/Screen.hpp"
#include "apps/inspect/Call.hpp"
#include "apps/inspect/Case.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vemra::inspect {

/// What became of a step: nothing to say, or why it could not be carried out.
using StepResult = std::optional<std::string>;

/// A case, carried out: the screen, mounted without a window, and a host that only takes notes.
///
/// Main thread only.
class Inspection {
 public:
  /// Mounts the screen of the case's result.
  explicit Inspection(const Case& inspected);
  Inspection(const Inspection&) = delete;
  Inspection& operator=(const Inspection&) = delete;

  /// Carries out one step. A step that a user could not do does nothing and says why.
  StepResult carryOut(const Step& step);

  const testing::Screen& screen() const { return screen_; }
  testing::Screen& screen() { return screen_; }
  const std::vector<Call>& calls() const { return calls_; }

 private:
  ui::View view(const GetGoalSnapshotResponse& result);

  std::vector<Call> calls_;
  testing::Screen screen_;
};

}  // namespace vemra::inspect
