#include "benchmarks/data/SampleResult.hpp"

#include <utility>
#include <vector>

namespace vemra::bench {

namespace {

std::string reference(std::size_t person) {
  return "p" + std::to_string(person);
}

GoalWhyDTO reasonOf(std::size_t person) {
  switch (person % 5) {
    case 0:
      return GoalWhyDTO::evidence("Email", "Asked about design leads in March", "ev");
    case 1:
      return GoalWhyDTO::connection(3);
    case 2:
      return GoalWhyDTO::sharedActivity(4, 2);
    case 3:
      return GoalWhyDTO::nameMatch();
    default:
      return GoalWhyDTO::generic();
  }
}

GoalOutcomeDTO outcomeOf(std::string personRef, std::size_t number) {
  GoalOutcomeDTO outcome;
  outcome.id = "o" + std::to_string(number);
  outcome.subjectRef = std::move(personRef);
  outcome.value = allGoalOutcomeValues.at(number % allGoalOutcomeValues.size());
  return outcome;
}

}  // namespace

GetGoalSnapshotResponse sampleResult(SampleSize size) {
  GetGoalSnapshotResponse result;
  result.goal.id = "g1";
  result.goal.title = "Find a design lead";
  result.goal.targetPersonRef = reference(9);
  std::vector<GoalPersonCandidateDTO> people;
  people.reserve(size.people);
  for (std::size_t i = 0; i < size.people; ++i) {
    GoalPersonCandidateDTO person;
    person.personRef = reference(i);
    person.displayName = "Person Number " + std::to_string(i);
    person.why = reasonOf(i);
    if (i % 2 == 0) person.evidenceIDs = {"ev" + std::to_string(i)};
    people.push_back(std::move(person));
  }
  result.people = std::move(people);

  GoalPathCandidateDTO path;
  path.personRefs = {reference(1), reference(9)};
  path.why = GoalWhyDTO::connection(2);
  result.paths = {path};
  result.coverage.sources = {"Mail", "Calendar"};
  result.coverage.evidenceCount = 12;
  result.coverage.latestEvidenceAt = "2025-01-05T10:00:00Z";

  // Added first, so that a scan from the end reads all other outcomes before it finds a sample's
  // outcome.
  std::vector<GoalOutcomeDTO> outcomes;
  for (std::size_t i = 5; i < 100 && i < size.people; i += 10) {
    outcomes.push_back(outcomeOf(reference(i), outcomes.size()));
  }
  for (std::size_t i = 0; i < size.strayOutcomes; ++i) {
    outcomes.push_back(outcomeOf(reference(size.people + i), outcomes.size()));
  }
  result.outcomes = std::move(outcomes);
  return result;
}

GetGoalSnapshotResponse withOneOutcomeMore(const GetGoalSnapshotResponse& result,
                                           std::size_t person, std::optional<std::string> note) {
  std::vector<GoalOutcomeDTO> outcomes(result.outcomes.begin(), result.outcomes.end());
  outcomes.push_back(outcomeOf(reference(person), outcomes.size()));
  outcomes.back().note = std::move(note);
  GetGoalSnapshotResponse longer = result;
  longer.outcomes = std::move(outcomes);
  return longer;
}

std::string identifierPrefixOf(std::size_t person) {
  return "vemra.goal.person." + reference(person);
}

std::string identifierOf(std::size_t person, const std::string& control) {
  return identifierPrefixOf(person) + "." + control;
}

}  // namespace vemra::bench
