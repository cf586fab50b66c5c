#pragma once

#include "VemraGoalSurface/GoalResultView.hpp"

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Results to show, and a host that only writes down what it is asked.
namespace vemra::screentest {

/// A result as the engine answers it: open to be changed until a snapshot is made of it.
using Result = GetGoalSnapshotResponse;
using SubjectKind = GoalOutcomeSubjectKind;
using Value = GoalOutcomeValue;
using OptionalText = std::optional<std::string>;

inline const std::string composed = "\u00e9";     // é, one scalar
inline const std::string decomposed = "e\u0301";  // é, a letter and a mark

inline GoalPersonCandidateDTO person(std::string ref, OptionalText name = std::nullopt,
                                     std::vector<std::string> evidenceIDs = {}) {
  GoalPersonCandidateDTO person;
  person.personRef = std::move(ref);
  person.displayName = std::move(name);
  person.why = GoalWhyDTO::nameMatch();
  person.evidenceIDs = std::move(evidenceIDs);
  return person;
}

inline GoalPathCandidateDTO path(std::vector<std::string> personRefs,
                                 GoalWhyDTO why = GoalWhyDTO::connection(2)) {
  GoalPathCandidateDTO path;
  path.personRefs = std::move(personRefs);
  path.why = std::move(why);
  return path;
}

inline GoalOutcomeDTO outcome(std::string id, SubjectKind kind, OptionalText ref, Value value,
                              OptionalText note = std::nullopt,
                              OptionalText correctsOutcomeID = std::nullopt) {
  GoalOutcomeDTO outcome;
  outcome.id = std::move(id);
  outcome.subjectKind = kind;
  outcome.subjectRef = std::move(ref);
  outcome.value = value;
  outcome.note = std::move(note);
  outcome.correctsOutcomeID = std::move(correctsOutcomeID);
  return outcome;
}

inline std::string inQuotes(const OptionalText& text) {
  return text ? '"' + *text + '"' : "nil";
}

/// A recording, byte for byte: `person "p1" helped note="met" corrects=nil`.
inline std::string described(const GoalOutcomeRecordingInput& input) {
  return std::string(caseName(input.subjectKind)) + ' ' + inQuotes(input.subjectRef) + ' ' +
         std::string(caseName(input.outcome)) + " note=" + inQuotes(input.note) +
         " corrects=" + inQuotes(input.correctsOutcomeID);
}

/// What the screen asked of its host, in order and byte for byte.
struct Calls {
  std::vector<std::string> log;
  std::vector<GoalPathCandidateDTO> focusedPaths;
};

inline GoalResultView viewOf(const Result& result, Calls& calls) {
  return GoalResultView(
      GoalResultSnapshotV1(result),
      [&calls](const std::string& ref) { calls.log.push_back("open " + inQuotes(ref)); },
      [&calls](const std::string& id) { calls.log.push_back("evidence " + inQuotes(id)); },
      [&calls](const GoalPathCandidateDTO& path) {
        calls.log.push_back("focus");
        calls.focusedPaths.push_back(path);
      },
      [&calls](const GoalOutcomeRecordingInput& input) {
        calls.log.push_back("record " + described(input));
      });
}

/// One person "p1" called Ada, one path to "p9", evidence from Mail: a screen without gaps.
inline Result ordinaryResult() {
  Result result;
  result.goal.title = "Find a design lead";
  result.goal.targetPersonRef = "p9";
  result.people = {person("p1", "Ada", {"ev9"})};
  result.paths = {path({"p1", "p9"})};
  result.coverage.sources = {"Mail"};
  result.coverage.evidenceCount = 12;
  return result;
}

}  // namespace vemra::screentest
