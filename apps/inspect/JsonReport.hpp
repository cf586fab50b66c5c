#pragma once

#include "apps/documents/JsonWriter.hpp"
#include "apps/inspect/Report.hpp"

namespace vemra::inspect {

/// `{"steps": […], "calls": […], "tree": …}`; a step is `{"ok": true}` or `{"error": "…"}`.
class JsonReport final : public Report {
 public:
  /// With `trace`, each step also carries the tree after it.
  explicit JsonReport(bool trace);

  void step(const Step& step, const StepResult& result, const Inspection& inspection) override;
  std::string finish(const Inspection& inspection) override;

 private:
  void writeTree(const Inspection& inspection);

  bool trace_;
  documents::JsonWriter out_;
};

}  // namespace vemra::inspect
