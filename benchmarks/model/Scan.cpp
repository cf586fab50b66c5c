#include "benchmarks/model/Scan.hpp"

#include <cstdio>
#include <vector>

namespace vemra::bench {

std::string referenceAt(std::size_t index, Alphabet alphabet) {
  // Multiplied, so that neighbours differ in many places.
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016zx", index * 0x9E3779B97F4A7C15U);
  return (alphabet == Alphabet::ascii ? "person-" : "pérsön-") + std::string(digits) +
         (alphabet == Alphabet::ascii ? "-e" : "-é");
}

GoalResultSnapshotV1 snapshotWithOutcomes(std::size_t count, Alphabet alphabet) {
  std::vector<GoalOutcomeDTO> outcomes;
  outcomes.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    GoalOutcomeDTO outcome;
    outcome.id = "o" + std::to_string(i);
    outcome.subjectRef = referenceAt(i, alphabet);
    outcomes.push_back(std::move(outcome));
  }
  GetGoalSnapshotResponse result;
  result.outcomes = std::move(outcomes);
  return GoalResultSnapshotV1(std::move(result));
}

const GoalOutcomeDTO* lastOutcomeByBytes(const GoalResultSnapshotV1& snapshot,
                                         const std::string& subjectRef) {
  const SharedArray<GoalOutcomeDTO>& outcomes = snapshot.outcomes();
  for (const GoalOutcomeDTO* outcome = outcomes.end(); outcome != outcomes.begin();) {
    --outcome;
    if (outcome->subjectKind == GoalOutcomeSubjectKind::person && outcome->subjectRef.has_value() &&
        *outcome->subjectRef == subjectRef) {
      return outcome;
    }
  }
  return nullptr;
}

}  // namespace vemra::bench
