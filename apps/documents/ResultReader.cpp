#include "apps/documents/ResultReader.hpp"

#include "apps/documents/EnumerationNames.hpp"
#include "apps/documents/SourceFile.hpp"
#include "apps/documents/WhyReader.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace vemra::documents {
namespace {

using enum Presence;

template <class Enumeration>
Enumeration readCase(JsonReader& reader, std::span<const std::string_view> names) {
  return static_cast<Enumeration>(reader.name(names));
}

/// From this length on, the reader estimates the length of an array.
constexpr std::size_t longArray = 256;
/// An estimate reserves no more memory than this, since it may be wrong.
constexpr std::size_t mostGuessedBytes = std::size_t{1} << 30;

/// Reserves memory for the rest of a list, assuming that the `unread` bytes contain as many
/// elements per byte as the `read` ones. A list of millions that only doubled its memory would
/// spend most of its time in the system, which would have to provide the memory twice.
template <class Element>
void makeRoom(std::vector<Element>& elements, std::size_t read, std::size_t unread) {
  const std::size_t twice = 2 * elements.size();
  const std::size_t guess = unread / (read / elements.size());
  const std::size_t mostGuessed = mostGuessedBytes / sizeof(Element);
  elements.reserve(std::max(twice, std::min(twice + guess, mostGuessed)));
}

template <class Element>
SharedArray<Element> readArray(JsonReader& reader, void (*readElement)(JsonReader&, Element&)) {
  std::vector<Element> elements;
  const std::size_t start = reader.unread();
  reader.array([&] {
    if (elements.size() >= longArray && elements.size() == elements.capacity()) {
      makeRoom(elements, start - reader.unread(), reader.unread());
    }
    readElement(reader, elements.emplace_back());
  });
  if (elements.capacity() > 2 * elements.size()) elements.shrink_to_fit();
  return elements;
}

void readString(JsonReader& reader, std::string& text) {
  reader.string(text);
}

SharedArray<std::string> readStrings(JsonReader& reader) {
  return readArray(reader, readString);
}

GoalDTO readGoal(JsonReader& in) {
  GoalDTO goal;
  in.object({
      {"id", required, [&] { in.string(goal.id); }},
      {"title", required, [&] { in.string(goal.title); }},
      {"status", optional, [&] { goal.status = readCase<GoalStatus>(in, statusNames); }},
      {"targetPersonRef", optional, [&] { in.stringOrNull(goal.targetPersonRef); }},
      {"createdAt", optional, [&] { in.string(goal.createdAt); }},
      {"updatedAt", optional, [&] { in.string(goal.updatedAt); }},
      {"priority", optional, [&] { goal.priority = readCase<GoalPriority>(in, priorityNames); }},
      {"keywords", optional, [&] { goal.keywords = readStrings(in); }},
      {"keywordsRevision", optional, [&] { goal.keywordsRevision = in.integer(); }},
      {"constraints", optional, [&] { goal.constraints = readStrings(in); }},
      {"constraintsRevision", optional, [&] { goal.constraintsRevision = in.integer(); }},
      {"attachmentRefs", optional, [&] { goal.attachmentRefs = readStrings(in); }},
  });
  return goal;
}

void readPerson(JsonReader& in, GoalPersonCandidateDTO& person) {
  in.object({
      {"personRef", required, [&] { in.string(person.personRef); }},
      {"displayName", optional, [&] { in.stringOrNull(person.displayName); }},
      {"why", required, [&] { person.why = readWhy(in); }},
      {"evidenceIDs", optional, [&] { person.evidenceIDs = readStrings(in); }},
  });
}

void readPath(JsonReader& in, GoalPathCandidateDTO& path) {
  in.object({
      {"personRefs", required, [&] { path.personRefs = readStrings(in); }},
      {"why", required, [&] { path.why = readWhy(in); }},
      {"strength", optional, [&] { path.strength = in.integer(); }},
  });
}

void readGroup(JsonReader& in, GoalGroupCandidateDTO& group) {
  in.object({
      {"id", required, [&] { in.string(group.id); }},
      {"personRefs", optional, [&] { group.personRefs = readStrings(in); }},
  });
}

GoalCoverageDTO readCoverage(JsonReader& in) {
  GoalCoverageDTO coverage;
  in.object({
      {"sources", required, [&] { coverage.sources = readStrings(in); }},
      {"evidenceCount", required, [&] { coverage.evidenceCount = in.integer(); }},
      {"latestEvidenceAt", optional, [&] { in.stringOrNull(coverage.latestEvidenceAt); }},
  });
  return coverage;
}

void readOutcome(JsonReader& in, GoalOutcomeDTO& outcome) {
  const auto subjectKind = [&] {
    outcome.subjectKind = readCase<GoalOutcomeSubjectKind>(in, subjectKindNames);
  };
  const auto value = [&] { outcome.value = readCase<GoalOutcomeValue>(in, outcomeValueNames); };
  in.object({
      {"id", required, [&] { in.string(outcome.id); }},
      {"goalID", optional, [&] { in.string(outcome.goalID); }},
      {"subjectKind", required, subjectKind},
      {"subjectRef", optional, [&] { in.stringOrNull(outcome.subjectRef); }},
      {"value", required, value},
      {"note", optional, [&] { in.stringOrNull(outcome.note); }},
      {"recordedAt", optional, [&] { in.stringOrNull(outcome.recordedAt); }},
      {"recordedBy", optional, [&] { in.stringOrNull(outcome.recordedBy); }},
      {"correctsOutcomeID", optional, [&] { in.stringOrNull(outcome.correctsOutcomeID); }},
  });
}

/// Reads a document that has nothing but a result.
GetGoalSnapshotResponse readWhole(JsonReader&& in) {
  GetGoalSnapshotResponse result = readResult(in);
  in.finish();
  return result;
}

}  // namespace

GetGoalSnapshotResponse readResult(JsonReader& in) {
  GetGoalSnapshotResponse result;
  in.object({
      {"goal", required, [&] { result.goal = readGoal(in); }},
      {"people", required, [&] { result.people = readArray(in, readPerson); }},
      {"paths", required, [&] { result.paths = readArray(in, readPath); }},
      {"group", required, [&] { result.group = readArray(in, readGroup); }},
      {"coverage", required, [&] { result.coverage = readCoverage(in); }},
      {"outcomes", required, [&] { result.outcomes = readArray(in, readOutcome); }},
  });
  return result;
}

GetGoalSnapshotResponse readResultText(std::string_view text, const std::string& file) {
  return readWhole(JsonReader(text, file));
}

GetGoalSnapshotResponse readResultFile(const std::string& path) {
  SourceFile source(path);
  return readWhole(JsonReader(source, path));
}

}  // namespace vemra::documents
