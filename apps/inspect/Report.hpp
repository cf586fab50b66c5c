#pragma once

#include "apps/inspect/Inspection.hpp"

#include <string>

namespace vemra::inspect {

/// Collects the report of an inspection while it runs.
class Report {
 public:
  virtual ~Report() = default;

  /// Right after each step.
  virtual void step(const Step& step, const StepResult& result, const Inspection& inspection) = 0;

  /// After the last one: the whole text.
  virtual std::string finish(const Inspection& inspection) = 0;
};

}  // namespace vemra::inspect
