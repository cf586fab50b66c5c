#pragma once

#include "apps/inspect/Report.hpp"

#include <cstddef>

namespace vemra::inspect {

/// A report for people: a line for each step and each call, then the outline of the tree.
///
///     step 1: press "vemra.goal.person.p1.show-source": done
///     call: {"callback": "onShowEvidence", "argument": "ev9"}
///
///     GoalResultView
///       ScrollView
///         …
class OutlineReport final : public Report {
 public:
  /// With `trace`, each step's line is followed by the outline of the tree after that step.
  explicit OutlineReport(bool trace) : trace_(trace) {}

  void step(const Step& step, const StepResult& result, const Inspection& inspection) override;
  std::string finish(const Inspection& inspection) override;

 private:
  bool trace_;
  std::size_t stepNumber_ = 0;
  std::size_t callsSaid_ = 0;
  std::string text_;
};

}  // namespace vemra::inspect
