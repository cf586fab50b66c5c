#include "apps/documents/ResultWriter.hpp"

#include "apps/documents/EnumerationNames.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace vemra::documents {
namespace {

void writeString(JsonWriter& out, std::string_view key, const std::string& value) {
  out.key(key);
  out.string(value);
}

void writeNullable(JsonWriter& out, std::string_view key, const std::optional<std::string>& value) {
  out.key(key);
  out.stringOrNull(value);
}

void writeInteger(JsonWriter& out, std::string_view key, std::int64_t value) {
  out.key(key);
  out.integer(value);
}

void writeStrings(JsonWriter& out, std::string_view key, const SharedArray<std::string>& values) {
  out.key(key);
  out.beginArray(Layout::inLine);
  for (const std::string& value : values) out.string(value);
  out.endArray();
}

/// The fields below are written only when they differ from the default of an absent key.
void writeGiven(JsonWriter& out, std::string_view key, const std::string& value) {
  if (!value.empty()) writeString(out, key, value);
}

void writeGiven(JsonWriter& out, std::string_view key, const std::optional<std::string>& value) {
  if (value) writeString(out, key, *value);
}

void writeGiven(JsonWriter& out, std::string_view key, std::int64_t value) {
  if (value != 0) writeInteger(out, key, value);
}

void writeGiven(JsonWriter& out, std::string_view key, const SharedArray<std::string>& values) {
  if (!values.empty()) writeStrings(out, key, values);
}

template <class Enumeration>
void writeGivenCase(JsonWriter& out, std::string_view key, std::span<const std::string_view> names,
                    Enumeration value) {
  if (value == Enumeration{}) return;
  out.key(key);
  out.string(nameIn(names, value));
}

/// Writes the kind and the fields of a reason.
struct WhyWriter {
  JsonWriter& out;

  void kind(WhyKind kind) {
    out.key("kind");
    out.string(nameIn(whyKindNames, kind));
  }
  void operator()(const GoalWhyDTO::Evidence& evidence) {
    kind(WhyKind::evidence);
    writeString(out, "label", evidence.label);
    writeString(out, "detail", evidence.detail);
    writeString(out, "reference", evidence.reference);
  }
  void operator()(const GoalWhyDTO::Connection& connection) {
    kind(WhyKind::connection);
    writeInteger(out, "hopCount", connection.hopCount);
  }
  void operator()(const GoalWhyDTO::SharedActivity& activity) {
    kind(WhyKind::sharedActivity);
    writeInteger(out, "threadCount", activity.threadCount);
    writeInteger(out, "meetingCount", activity.meetingCount);
  }
  void operator()(GoalWhyDTO::Plain plain) {
    kind(plain == GoalWhyDTO::Plain::nameMatch ? WhyKind::nameMatch : WhyKind::generic);
  }
};

void writeWhy(JsonWriter& out, const GoalWhyDTO& why) {
  out.key("why");
  out.beginObject(Layout::inLine);
  std::visit(WhyWriter{out}, why.reason);
  out.endObject();
}

void writeGoal(JsonWriter& out, const GoalDTO& goal) {
  out.beginObject(Layout::inLine);
  writeString(out, "id", goal.id);
  writeString(out, "title", goal.title);
  writeGivenCase(out, "status", statusNames, goal.status);
  writeNullable(out, "targetPersonRef", goal.targetPersonRef);
  writeGiven(out, "createdAt", goal.createdAt);
  writeGiven(out, "updatedAt", goal.updatedAt);
  writeGivenCase(out, "priority", priorityNames, goal.priority);
  writeGiven(out, "keywords", goal.keywords);
  writeGiven(out, "keywordsRevision", goal.keywordsRevision);
  writeGiven(out, "constraints", goal.constraints);
  writeGiven(out, "constraintsRevision", goal.constraintsRevision);
  writeGiven(out, "attachmentRefs", goal.attachmentRefs);
  out.endObject();
}

void writePerson(JsonWriter& out, const GoalPersonCandidateDTO& person) {
  out.beginObject(Layout::inLine);
  writeString(out, "personRef", person.personRef);
  writeNullable(out, "displayName", person.displayName);
  writeWhy(out, person.why);
  writeStrings(out, "evidenceIDs", person.evidenceIDs);
  out.endObject();
}

void writeGroup(JsonWriter& out, const GoalGroupCandidateDTO& group) {
  out.beginObject(Layout::inLine);
  writeString(out, "id", group.id);
  writeGiven(out, "personRefs", group.personRefs);
  out.endObject();
}

void writeCoverage(JsonWriter& out, const GoalCoverageDTO& coverage) {
  out.beginObject(Layout::inLine);
  writeStrings(out, "sources", coverage.sources);
  writeInteger(out, "evidenceCount", coverage.evidenceCount);
  writeNullable(out, "latestEvidenceAt", coverage.latestEvidenceAt);
  out.endObject();
}

template <class Element>
void writeArray(JsonWriter& out, const SharedArray<Element>& elements,
                void (*writeElement)(JsonWriter&, const Element&)) {
  out.beginArray(Layout::lines);
  for (const Element& element : elements) writeElement(out, element);
  out.endArray();
}

}  // namespace

void writePath(JsonWriter& out, const GoalPathCandidateDTO& path) {
  out.beginObject(Layout::inLine);
  writeStrings(out, "personRefs", path.personRefs);
  writeWhy(out, path.why);
  writeGiven(out, "strength", path.strength);
  out.endObject();
}

void writeOutcome(JsonWriter& out, const GoalOutcomeDTO& outcome) {
  out.beginObject(Layout::inLine);
  writeString(out, "id", outcome.id);
  writeGiven(out, "goalID", outcome.goalID);
  out.key("subjectKind");
  out.string(caseName(outcome.subjectKind));
  writeNullable(out, "subjectRef", outcome.subjectRef);
  out.key("value");
  out.string(caseName(outcome.value));
  writeNullable(out, "note", outcome.note);
  writeGiven(out, "recordedAt", outcome.recordedAt);
  writeGiven(out, "recordedBy", outcome.recordedBy);
  writeNullable(out, "correctsOutcomeID", outcome.correctsOutcomeID);
  out.endObject();
}

void writeResult(JsonWriter& out, const GetGoalSnapshotResponse& result) {
  out.beginObject(Layout::lines);
  out.key("goal");
  writeGoal(out, result.goal);
  out.key("people");
  writeArray(out, result.people, writePerson);
  out.key("paths");
  writeArray(out, result.paths, writePath);
  out.key("group");
  writeArray(out, result.group, writeGroup);
  out.key("coverage");
  writeCoverage(out, result.coverage);
  out.key("outcomes");
  writeArray(out, result.outcomes, writeOutcome);
  out.endObject();
}

std::string writeResult(const GetGoalSnapshotResponse& result) {
  JsonWriter out;
  writeResult(out, result);
  return out.take() + '\n';
}

std::string writeOutcomes(const SharedArray<GoalOutcomeDTO>& outcomes) {
  JsonWriter out;
  writeArray(out, outcomes, writeOutcome);
  return out.take() + '\n';
}

}  // namespace vemra::documents
