#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Records in which a test sets only the fields that matter to it.
namespace vemra::build {

inline GoalPersonCandidateDTO person(std::string ref,
                                     std::optional<std::string> name = std::nullopt,
                                     std::vector<std::string> evidenceIDs = {},
                                     GoalWhyDTO why = GoalWhyDTO::nameMatch()) {
  GoalPersonCandidateDTO person;
  person.personRef = std::move(ref);
  person.displayName = std::move(name);
  person.why = std::move(why);
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

inline GoalOutcomeDTO outcome(std::string id, GoalOutcomeSubjectKind kind,
                              std::optional<std::string> ref,
                              GoalOutcomeValue value = GoalOutcomeValue::reachedOut,
                              std::optional<std::string> note = std::nullopt,
                              std::optional<std::string> correctsOutcomeID = std::nullopt) {
  GoalOutcomeDTO outcome;
  outcome.id = std::move(id);
  outcome.subjectKind = kind;
  outcome.subjectRef = std::move(ref);
  outcome.value = value;
  outcome.note = std::move(note);
  outcome.correctsOutcomeID = std::move(correctsOutcomeID);
  return outcome;
}

}  // namespace vemra::build
