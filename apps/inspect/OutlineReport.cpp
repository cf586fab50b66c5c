#include "apps/inspect/OutlineReport.hpp"

#include "apps/documents/DocumentError.hpp"
#include "apps/documents/JsonWriter.hpp"

#include <utility>
#include <variant>

namespace vemra::inspect {
namespace {

using documents::inQuotes;

struct StepText {
  std::string operator()(const PressIdentifier& press) const {
    return "press " + inQuotes(press.identifier);
  }
  std::string operator()(const PressTitle& press) const {
    return "press button " + inQuotes(press.title) + " at index " + std::to_string(press.index);
  }
  std::string operator()(const Select& select) const {
    return "select " + std::string(caseName(select.value)) + " in " + inQuotes(select.identifier);
  }
  std::string operator()(const Type& type) const {
    return "type " + inQuotes(type.text) + " into " + inQuotes(type.identifier);
  }
  std::string operator()(const Submit& submit) const {
    return "submit " + inQuotes(submit.identifier);
  }
  std::string operator()(const NewResult&) const { return "hand in a new result"; }
};

}  // namespace

void OutlineReport::step(const Step& step, const StepResult& result, const Inspection& inspection) {
  text_ += "step " + std::to_string(++stepNumber_) + ": " + std::visit(StepText{}, step) + ": " +
           (result ? "error: " + *result : "done") + '\n';
  for (; callsSaid_ < inspection.calls().size(); ++callsSaid_) {
    documents::JsonWriter call;
    writeCall(call, inspection.calls()[callsSaid_]);
    text_ += "call: " + call.take() + '\n';
  }
  if (trace_) text_ += '\n' + inspection.screen().outline() + '\n';
}

std::string OutlineReport::finish(const Inspection& inspection) {
  if (stepNumber_ > 0 && !trace_) text_ += '\n';
  // With a trace, the last step's outline is the one after the last step.
  if (stepNumber_ == 0 || !trace_) text_ += inspection.screen().outline();
  return std::exchange(text_, {});
}

}  // namespace vemra::inspect
