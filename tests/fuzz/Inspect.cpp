// Any text as a case of vemra-inspect: it is refused with an error that names its place, or its
// steps are carried out and each of the reports is written. A step that reports an error changes
// nothing.

#include "apps/inspect/Case.hpp"
#include "apps/inspect/Inspection.hpp"
#include "apps/inspect/MakeReport.hpp"
#include "tests/fuzz/JsonErrors.hpp"
#include "tests/fuzz/Target.hpp"

#include <memory>
#include <vector>

#include <nlohmann/json.hpp>

namespace vemra {
namespace {

/// Carries a step out; one that reports an error must change nothing.
inspect::StepResult carriedOut(inspect::Inspection& inspection, const inspect::Step& step) {
  const std::string before = inspection.screen().outline();
  const std::size_t calls = inspection.calls().size();
  inspect::StepResult result = inspection.carryOut(step);
  if (result) {
    fuzz::require(inspection.screen().outline() == before && inspection.calls().size() == calls,
                  "a step that reports an error changes nothing", *result);
    fuzz::require(result->find_first_of("\n\r") == std::string::npos,
                  "the error of a step is one line", *result);
  }
  return result;
}

/// Carries the case out once and returns all its reports.
std::vector<std::string> reported(const inspect::Case& inspected) {
  std::vector<std::unique_ptr<inspect::Report>> reports;
  for (const bool outline : {false, true}) {
    for (const bool trace : {false, true}) {
      inspect::Options options;
      options.outline = outline;
      options.trace = trace;
      reports.push_back(inspect::makeReport(options));
    }
  }
  inspect::Inspection inspection(inspected);
  for (const inspect::Step& step : inspected.steps) {
    const inspect::StepResult result = carriedOut(inspection, step);
    for (const auto& report : reports) report->step(step, result, inspection);
  }
  std::vector<std::string> texts;
  for (const auto& report : reports) texts.push_back(report->finish(inspection));
  return texts;
}

void check(const inspect::Case& inspected) {
  const std::vector<std::string> reports = reported(inspected);
  for (const std::size_t json : {0, 1}) {
    fuzz::require(nlohmann::json::accept(reports[json]), "a report is JSON", reports[json]);
  }
  for (const std::string& report : reports) {
    fuzz::require(text::isWellFormed(report), "a report is UTF-8", report);
  }
  fuzz::require(reports == reported(inspected), "a case carried out again has the same reports");
}

}  // namespace
}  // namespace vemra

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vemra;
  const std::string_view text = fuzz::textOf(data, size);
  // This hop count has no sentence and ends the process on purpose.
  if (text.find("-9223372036854775808") != std::string_view::npos) return 0;
  try {
    check(inspect::readCase(text, "case.json", ui::Environment()));
  } catch (const documents::DocumentError& error) {
    fuzz::requireGoodError(error);
  }
  return 0;
}
