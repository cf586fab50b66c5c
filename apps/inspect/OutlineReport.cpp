#include "apps/inspect/OutlineReport.hpp"

#include "apps/documents/DocumentError.hpp"
#include "apps/documents/JsonWriter.hpp"

#include <cstddef>
#include <utility>
#include <variant>

namespace vemra::inspect {
namespace {

using documents::inQuotes;

struct StepText {
  std::string operator()(const PressIdentifier& press) const {
    return "press " + element(press.identifier, press.index);
  }
  std::string operator()(const PressTitle& press) const {
    return "press button " + inQuotes(press.title) + " at index " + std::to_string(press.index);
  }
  std::string operator()(const Select& select) const {
    return "select " + std::string(caseName(select.value)) + " in " +
           element(select.identifier, select.index);
  }
  std::string operator()(const Type& type) const {
    return "type " + inQuotes(type.text) + " into " + element(type.identifier, type.index);
  }
  std::string operator()(const Submit& submit) const {
    return "submit " + element(submit.identifier, submit.index);
  }
  std::string operator()(const NewResult& handedIn) const {
    std::string text = "hand in a new result";
    if (handedIn.screen) text += " on screen " + std::to_string(*handedIn.screen);
    return text;
  }
  std::string operator()(const ShowScreen& show) const {
    return "show screen " + std::to_string(show.screen);
  }
  std::string operator()(const ExpectCall& expected) const {
    return "expect the call " + expected.call;
  }
  static std::string element(const std::string& identifier, std::size_t index) {
    return inQuotes(identifier) + (index == 0 ? "" : " at index " + std::to_string(index));
  }
};

}  // namespace

void OutlineReport::step(const Step& step, const StepResult& result, const Inspection& inspection) {
  text_ += "step " + std::to_string(++stepNumber_) + ": " + std::visit(StepText{}, step) + ": " +
           (result ? "error: " + *result : "done") + '\n';
  for (; callsSaid_ < inspection.calls().size(); ++callsSaid_) {
    documents::JsonWriter call;
    recording::writeCall(call, inspection.calls()[callsSaid_]);
    text_ += "call: " + call.take() + '\n';
  }
  if (trace_) text_ += '\n' + inspection.outline() + '\n';
}

std::string OutlineReport::finish(const Inspection& inspection) {
  if (stepNumber_ > 0 && !trace_) text_ += '\n';
  // With a trace, the last step's outline is the one after the last step.
  if (stepNumber_ == 0) return inspection.outline();
  if (!trace_) text_ += inspection.outline();
  return std::exchange(text_, {});
}

}  // namespace vemra::inspect
