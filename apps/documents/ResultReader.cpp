#include "apps/documents/ResultReader.hpp"

#include "apps/documents/EnumerationNames.hpp"
#include "apps/documents/SourceFile.hpp"
#include "apps/documents/WhyReader.hpp"

#include <algorithm>
#include <array>
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

template <class Record>
using Field = RecordField<Record>;

constexpr auto goalFields = std::to_array<Field<GoalDTO>>({
    {"id", required, [](auto& in, auto& goal) { in.string(goal.id); }},
    {"title", required, [](auto& in, auto& goal) { in.string(goal.title); }},
    {"status", optional,
     [](auto& in, auto& goal) { goal.status = readCase<GoalStatus>(in, statusNames); }},
    {"targetPersonRef", optional,
     [](auto& in, auto& goal) { in.stringOrNull(goal.targetPersonRef); }},
    {"createdAt", optional, [](auto& in, auto& goal) { in.string(goal.createdAt); }},
    {"updatedAt", optional, [](auto& in, auto& goal) { in.string(goal.updatedAt); }},
    {"priority", optional,
     [](auto& in, auto& goal) { goal.priority = readCase<GoalPriority>(in, priorityNames); }},
    {"keywords", optional, [](auto& in, auto& goal) { goal.keywords = readStrings(in); }},
    {"keywordsRevision", optional,
     [](auto& in, auto& goal) { goal.keywordsRevision = in.integer(); }},
    {"constraints", optional, [](auto& in, auto& goal) { goal.constraints = readStrings(in); }},
    {"constraintsRevision", optional,
     [](auto& in, auto& goal) { goal.constraintsRevision = in.integer(); }},
    {"attachmentRefs", optional,
     [](auto& in, auto& goal) { goal.attachmentRefs = readStrings(in); }},
});

constexpr auto personFields = std::to_array<Field<GoalPersonCandidateDTO>>({
    {"personRef", required, [](auto& in, auto& person) { in.string(person.personRef); }},
    {"displayName", optional, [](auto& in, auto& person) { in.stringOrNull(person.displayName); }},
    {"why", required, [](auto& in, auto& person) { person.why = readWhy(in); }},
    {"evidenceIDs", optional, [](auto& in, auto& person) { person.evidenceIDs = readStrings(in); }},
});

constexpr auto pathFields = std::to_array<Field<GoalPathCandidateDTO>>({
    {"personRefs", required, [](auto& in, auto& path) { path.personRefs = readStrings(in); }},
    {"why", required, [](auto& in, auto& path) { path.why = readWhy(in); }},
    {"strength", optional, [](auto& in, auto& path) { path.strength = in.integer(); }},
});

constexpr auto groupFields = std::to_array<Field<GoalGroupCandidateDTO>>({
    {"id", required, [](auto& in, auto& group) { in.string(group.id); }},
    {"personRefs", optional, [](auto& in, auto& group) { group.personRefs = readStrings(in); }},
});

constexpr auto coverageFields = std::to_array<Field<GoalCoverageDTO>>({
    {"sources", required, [](auto& in, auto& coverage) { coverage.sources = readStrings(in); }},
    {"evidenceCount", required,
     [](auto& in, auto& coverage) { coverage.evidenceCount = in.integer(); }},
    {"latestEvidenceAt", optional,
     [](auto& in, auto& coverage) { in.stringOrNull(coverage.latestEvidenceAt); }},
});

constexpr auto outcomeFields = std::to_array<Field<GoalOutcomeDTO>>({
    {"id", required, [](auto& in, auto& outcome) { in.string(outcome.id); }},
    {"goalID", optional, [](auto& in, auto& outcome) { in.string(outcome.goalID); }},
    {"subjectKind", required,
     [](auto& in, auto& outcome) {
       outcome.subjectKind = readCase<GoalOutcomeSubjectKind>(in, subjectKindNames);
     }},
    {"subjectRef", optional, [](auto& in, auto& outcome) { in.stringOrNull(outcome.subjectRef); }},
    {"value", required,
     [](auto& in, auto& outcome) {
       outcome.value = readCase<GoalOutcomeValue>(in, outcomeValueNames);
     }},
    {"note", optional, [](auto& in, auto& outcome) { in.stringOrNull(outcome.note); }},
    {"recordedAt", optional, [](auto& in, auto& outcome) { in.stringOrNull(outcome.recordedAt); }},
    {"recordedBy", optional, [](auto& in, auto& outcome) { in.stringOrNull(outcome.recordedBy); }},
    {"correctsOutcomeID", optional,
     [](auto& in, auto& outcome) { in.stringOrNull(outcome.correctsOutcomeID); }},
});

/// Reads an array whose elements have these fields.
template <const auto& fields, class Element>
SharedArray<Element> readRecords(JsonReader& in) {
  return readArray<Element>(
      in, [](JsonReader& reader, Element& element) { reader.object(fields, element); });
}

constexpr auto resultFields = std::to_array<Field<GetGoalSnapshotResponse>>({
    {"goal", required, [](auto& in, auto& result) { in.object(goalFields, result.goal); }},
    {"people", required,
     [](auto& in, auto& result) {
       result.people = readRecords<personFields, GoalPersonCandidateDTO>(in);
     }},
    {"paths", required,
     [](auto& in, auto& result) {
       result.paths = readRecords<pathFields, GoalPathCandidateDTO>(in);
     }},
    {"group", required,
     [](auto& in, auto& result) {
       result.group = readRecords<groupFields, GoalGroupCandidateDTO>(in);
     }},
    {"coverage", required,
     [](auto& in, auto& result) { in.object(coverageFields, result.coverage); }},
    {"outcomes", required,
     [](auto& in, auto& result) {
       result.outcomes = readRecords<outcomeFields, GoalOutcomeDTO>(in);
     }},
});

/// Reads a document that has nothing but a result.
GetGoalSnapshotResponse readWhole(JsonReader&& in) {
  GetGoalSnapshotResponse result = readResult(in);
  in.finish();
  return result;
}

}  // namespace

GetGoalSnapshotResponse readResult(JsonReader& in) {
  GetGoalSnapshotResponse result;
  in.object(resultFields, result);
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
