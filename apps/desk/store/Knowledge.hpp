#pragma once

#include "VemraGoalEngine/GoalRecords.hpp"
#include "apps/desk/store/Database.hpp"
#include "apps/desk/store/GoalListing.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// \file
/// Everything that the store knows of one person or one piece of evidence, across its goals.
/// References are compared under canonical equivalence.

namespace vemra::desk {

/// The knowledge about a person.
struct PersonKnowledge {
  /// The person in the list of people of a goal.
  struct Suggestion {
    GoalListing goal;
    std::optional<std::string> displayName;
    GoalWhyDTO why;
    std::vector<std::string> evidenceIDs;  ///< strongest first
  };
  struct Outcome {
    GoalListing goal;
    GoalOutcomeDTO outcome;
  };

  std::string personRef;
  std::optional<std::string> name;          ///< the first name in any goal
  std::vector<Suggestion> suggestions;      ///< in the order of the goals
  std::vector<GoalListing> goalsTowards;    ///< the goals that aim at the person
  std::vector<GoalListing> goalsWithPaths;  ///< the goals with a path through the person
  std::vector<Outcome> outcomes;            ///< recorded about the person, oldest first
};

/// The knowledge about a piece of evidence.
struct EvidenceKnowledge {
  /// The reason of a person or a path that is based on it.
  struct Statement {
    GoalListing goal;
    std::string label;
    std::string detail;
  };
  /// A person whom the evidence supports.
  struct Person {
    GoalListing goal;
    std::string personRef;
    std::optional<std::string> displayName;
    std::size_t rank;  ///< 0: the strongest evidence for that person
    GoalWhyDTO why;    ///< why that person is suggested
  };

  std::string evidenceID;
  std::vector<Statement> statements;
  std::vector<Person> people;
};

PersonKnowledge readPersonKnowledge(Database& database, const std::string& personRef);
EvidenceKnowledge readEvidenceKnowledge(Database& database, const std::string& evidenceID);

/// For each reference the first name that the store knows: from the goal with that number, or else
/// from any other goal. Reads the people once, however many references there are.
std::vector<std::optional<std::string>> readNames(Database& database, std::int64_t goal,
                                                  const SharedArray<std::string>& personRefs);

}  // namespace vemra::desk
