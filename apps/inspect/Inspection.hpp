#pragma once

#include "VemraRecording/Call.hpp"
#include "VemraTesting/Screen.hpp"
#include "apps/inspect/Case.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vemra::inspect {

/// The result of a step: nil when it was carried out, otherwise the reason why it was not.
using StepResult = std::optional<std::string>;

/// Carries out a case: mounts its screens without a window, in a host that only records the calls
/// of their callbacks.
///
/// Main thread only.
class Inspection {
 public:
  /// Mounts no screen yet: the first one is mounted when a step or a report needs it.
  explicit Inspection(const Case& inspected);
  Inspection(const Inspection&) = delete;
  Inspection& operator=(const Inspection&) = delete;

  /// Carries out one step. A step that a user could not do changes nothing; the result is the
  /// reason.
  StepResult carryOut(const Step& step);

  /// To be called after the last step. Where the case names its calls (it is recorded, or has a
  /// step for a call), a call that no step has named is an error.
  StepResult finish() const;

  /// The screen that is shown; a case may have several.
  const testing::Screen& screen() const { return *mounted()[shown_]; }
  testing::Screen& screen() { return *mounted()[shown_]; }
  /// Calls `read` with the graph of the screen that is shown. While no screen is mounted, the graph
  /// has no rows yet: a reader that describes one after the other (`testing::eachChild`) takes
  /// little memory for a result of any length.
  void readGraph(const std::function<void(ui::ViewGraph&)>& read) const;
  /// The outline of the screen that is shown, read in this way.
  std::string outline() const;
  const std::vector<recording::Call>& calls() const { return calls_; }

 private:
  using Screens = std::vector<std::unique_ptr<testing::Screen>>;

  ui::View view(const GetGoalSnapshotResponse& result);
  Screens& mounted() const;

  StepResult nextCallIs(const std::string& call);

  const ui::Environment environment_;
  std::vector<recording::Call> calls_;
  const bool namesCalls_;
  std::size_t callsExpected_ = 0;
  ui::View first_;           ///< of the case's result
  mutable Screens screens_;  ///< by number; empty until one is needed
  std::size_t shown_ = 0;
};

}  // namespace vemra::inspect
