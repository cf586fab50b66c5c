#pragma once

#include "VemraGoalSurface/GoalResultView.hpp"
#include "tests/RecordBuilders.hpp"

#include <optional>
#include <string>
#include <vector>

/// Results to show, and a host that only logs its calls.
namespace vemra::screentest {

/// The engine's answer, which a test may change until it makes a snapshot.
using Result = GetGoalSnapshotResponse;
using SubjectKind = GoalOutcomeSubjectKind;
using Value = GoalOutcomeValue;
using OptionalText = std::optional<std::string>;

inline const std::string composed = "\u00e9";     // é, one scalar
inline const std::string decomposed = "e\u0301";  // é, a letter and a mark

using build::outcome;
using build::path;
using build::person;

inline std::string inQuotes(const OptionalText& text) {
  return text ? '"' + *text + '"' : "nil";
}

/// A recording, byte for byte: `person "p1" helped note="met" corrects=nil`.
inline std::string described(const GoalOutcomeRecordingInput& input) {
  return std::string(caseName(input.subjectKind())) + ' ' + inQuotes(input.subjectRef()) + ' ' +
         std::string(caseName(input.outcome())) + " note=" + inQuotes(input.note()) +
         " corrects=" + inQuotes(input.correctsOutcomeID());
}

/// The screen's calls of its host, in order and byte for byte.
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
