#pragma once

#include "apps/inspect/Inspection.hpp"
#include "apps/inspect/Options.hpp"

#include <memory>
#include <string>

namespace vemra::inspect {

/// What an inspection says of itself, gathered while it runs.
class Report {
 public:
  virtual ~Report() = default;

  /// Right after each step.
  virtual void step(const Step& step, const StepResult& result, const Inspection& inspection) = 0;

  /// After the last one: the whole text.
  virtual std::string finish(const Inspection& inspection) = 0;
};

/// The JSON document, or with `outline` the text for people.
std::unique_ptr<Report> makeReport(const Options& options);

}  // namespace vemra::inspect
