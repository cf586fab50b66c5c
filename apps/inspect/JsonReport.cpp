#include "apps/inspect/JsonReport.hpp"

#include "apps/inspect/ElementTree.hpp"

namespace vemra::inspect {

using documents::Layout;

JsonReport::JsonReport(bool trace) : trace_(trace) {
  out_.beginObject(Layout::lines);
  out_.key("steps");
  out_.beginArray(Layout::lines);
}

void JsonReport::step(const Step&, const StepResult& result, const Inspection& inspection) {
  out_.beginObject(Layout::inLine);
  if (result) {
    out_.key("error");
    out_.string(*result);
  } else {
    out_.key("ok");
    out_.boolean(true);
  }
  if (trace_) {
    out_.key("tree");
    writeTree(inspection);
  }
  out_.endObject();
}

void JsonReport::writeTree(const Inspection& inspection) {
  inspection.readGraph([&](ui::ViewGraph& graph) { writeElementTree(out_, graph); });
}

std::string JsonReport::finish(const Inspection& inspection) {
  out_.endArray();
  out_.key("calls");
  out_.beginArray(Layout::lines);
  for (const recording::Call& call : inspection.calls()) recording::writeCall(out_, call);
  out_.endArray();
  out_.key("tree");
  writeTree(inspection);
  out_.endObject();
  return out_.take() + '\n';
}

}  // namespace vemra::inspect
