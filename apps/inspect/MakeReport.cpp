#include "apps/inspect/MakeReport.hpp"

#include "apps/inspect/JsonReport.hpp"
#include "apps/inspect/OutlineReport.hpp"

namespace vemra::inspect {

std::unique_ptr<Report> makeReport(const Options& options) {
  if (options.outline) return std::make_unique<OutlineReport>(options.trace);
  return std::make_unique<JsonReport>(options.trace);
}

}  // namespace vemra::inspect
