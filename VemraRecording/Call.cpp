#include "VemraRecording/Call.hpp"

#include "apps/documents/ResultWriter.hpp"

#include <string_view>

namespace vemra::recording {
namespace {

using documents::JsonWriter;
using documents::Layout;

struct CallWriter {
  JsonWriter& out;

  void callback(std::string_view name) {
    out.key("callback");
    out.string(name);
    out.key("argument");
  }
  void operator()(const OpenPerson& call) {
    callback("onOpenPerson");
    out.string(call.personRef);
  }
  void operator()(const ShowEvidence& call) {
    callback("onShowEvidence");
    out.string(call.evidenceID);
  }
  void operator()(const FocusPathInStarfold& call) {
    callback("onFocusPathInStarfold");
    documents::writePath(out, call.path);
  }
  void operator()(const RecordOutcome& call) {
    callback("onRecordOutcome");
    const GoalOutcomeRecordingInput& input = call.input;
    out.beginObject(Layout::inLine);
    out.key("subjectKind");
    out.string(caseName(input.subjectKind()));
    out.key("subjectRef");
    out.stringOrNull(input.subjectRef());
    out.key("outcome");
    out.string(caseName(input.outcome()));
    out.key("note");
    out.stringOrNull(input.note());
    out.key("correctsOutcomeID");
    out.stringOrNull(input.correctsOutcomeID());
    out.endObject();
  }
};

}  // namespace

void writeCall(JsonWriter& out, const Call& call) {
  out.beginObject(Layout::inLine);
  std::visit(CallWriter{out}, call);
  out.endObject();
}

std::string callText(const Call& call) {
  JsonWriter out;
  writeCall(out, call);
  return out.take();
}

}  // namespace vemra::recording
