#pragma once

#include "apps/inspect/Inspection.hpp"

#include <string>

namespace vemra::inspect {

/// Collects the report of an inspection while it runs.
class Report {
 public:
  virtual ~Report() = default;

  /// Adds a step. Call it right after the step, before the next one.
  virtual void step(const Step& step, const StepResult& result, const Inspection& inspection) = 0;

  /// Returns the whole text. Call it once, after the last step.
  virtual std::string finish(const Inspection& inspection) = 0;
};

}  // namespace vemra::inspect
