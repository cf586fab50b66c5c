#include "apps/desk/store/Knowledge.hpp"

#include "VemraPlatform/text/TextMap.hpp"
#include "apps/desk/store/EquivalentASCII.hpp"
#include "apps/desk/store/OutcomeRows.hpp"
#include "apps/desk/store/Reason.hpp"

#include <string_view>

namespace vemra::desk {
namespace {

/// The id and the title of a goal, from two neighbouring columns.
GoalListing goalFrom(Statement& row, int column) {
  return {row.text(column), row.text(column + 1)};
}

/// The goals from a query that returns number, id and title.
std::vector<GoalListing> goalsFrom(Database& database, const char* sql, const std::string& value) {
  Statement row(database, sql, {"goals", 1});
  std::vector<GoalListing> goals;
  row.query(value);
  while (row.next()) goals.push_back(goalFrom(row, 1));
  return goals;
}

std::vector<PersonKnowledge::Suggestion> suggestions(Database& database,
                                                     const std::string& personRef) {
  Statement row(database,
                std::string("SELECT goal, position, goals.id, title, display_name, ") +
                    reasonColumnNames +
                    " FROM people JOIN goals ON number = goal "
                    "WHERE same_text(person_ref, ?1) ORDER BY goal, position",
                {"people", 2});
  Statement evidence(database,
                     "SELECT goal, person, position, evidence_id FROM person_evidence "
                     "WHERE goal = ?1 AND person = ?2 ORDER BY position",
                     {"person_evidence", 3});
  std::vector<PersonKnowledge::Suggestion> suggestions;
  row.query(personRef);
  while (row.next()) {
    suggestions.push_back({goalFrom(row, 2), row.optionalText(4), readReason(row, 5), {}});
    std::vector<std::string>& evidenceIDs = suggestions.back().evidenceIDs;
    const std::int64_t goal = row.integer(0);
    const std::int64_t person = row.integer(1);
    evidence.query(goal, person);
    while (evidence.next()) {
      evidence.expectPosition(2, evidenceIDs.size());
      evidenceIDs.push_back(evidence.text(3));
    }
  }
  return suggestions;
}

/// Finds the outcomes by the indexes of subjects, goal after goal: those whose reference has the
/// bytes of this one or its equivalent in ASCII, and among the few that are not ASCII the equivalent
/// ones. No other text is equivalent (`EquivalentASCII`).
std::vector<PersonKnowledge::Outcome> outcomes(Database& database, const std::string& personRef) {
  Statement row(database,
                std::string("SELECT outcomes.number, goals.id, title, ") + outcomeColumnNames +
                    " FROM outcomes JOIN goals ON goals.number = goal WHERE outcomes.number IN ("
                    "SELECT found.number FROM goals CROSS JOIN outcomes AS found "
                    "ON found.goal = goals.number AND found.subject_kind = 'person' "
                    "AND found.subject_ref IN (?1, ?2) UNION "
                    "SELECT found.number FROM goals CROSS JOIN outcomes AS found "
                    "ON found.goal = goals.number AND found.subject_kind = 'person' "
                    "AND length(found.subject_ref) <> length(CAST(found.subject_ref AS BLOB)) "
                    "AND same_text(found.subject_ref, ?1)) "
                    "ORDER BY outcomes.number",
                {"outcomes", 1});
  const std::string ascii = equivalentASCII(personRef).value_or(personRef);
  std::vector<PersonKnowledge::Outcome> outcomes;
  row.query(personRef, ascii);
  while (row.next()) outcomes.push_back({goalFrom(row, 1), readOutcome(row, 3)});
  return outcomes;
}

}  // namespace

PersonKnowledge readPersonKnowledge(Database& database, const std::string& personRef) {
  PersonKnowledge person;
  person.personRef = personRef;
  person.suggestions = suggestions(database, personRef);
  for (const auto& suggestion : person.suggestions) {
    if (!person.name) person.name = suggestion.displayName;
  }
  person.goalsTowards = goalsFrom(database,
                                  "SELECT number, id, title FROM goals "
                                  "WHERE same_text(target_person_ref, ?1) ORDER BY number",
                                  personRef);
  person.goalsWithPaths =
      goalsFrom(database,
                "SELECT number, id, title FROM goals WHERE number IN "
                "(SELECT goal FROM path_people WHERE same_text(person_ref, ?1)) ORDER BY number",
                personRef);
  person.outcomes = outcomes(database, personRef);
  return person;
}

EvidenceKnowledge readEvidenceKnowledge(Database& database, const std::string& evidenceID) {
  EvidenceKnowledge evidence;
  evidence.evidenceID = evidenceID;
  Statement statement(database,
                      "SELECT DISTINCT goals.id, title, why_label, why_detail FROM "
                      "(SELECT goal, 0 AS part, position, why_label, why_detail, why_reference "
                      "FROM people UNION ALL "
                      "SELECT goal, 1, position, why_label, why_detail, why_reference FROM paths) "
                      "JOIN goals ON number = goal WHERE same_text(why_reference, ?1) "
                      "ORDER BY goal, part, position",
                      {"people or paths", 1});
  statement.query(evidenceID);
  while (statement.next()) {
    evidence.statements.push_back({goalFrom(statement, 0), statement.text(2), statement.text(3)});
  }
  Statement person(
      database,
      std::string("SELECT people.goal, person, person_evidence.position, goals.id, title, "
                  "person_ref, display_name, ") +
          reasonColumnNames +
          " FROM person_evidence "
          "JOIN people ON people.goal = person_evidence.goal "
          "AND people.position = person "
          "JOIN goals ON number = people.goal "
          "WHERE same_text(evidence_id, ?1) "
          "ORDER BY people.goal, people.position",
      {"person_evidence", 3});
  person.query(evidenceID);
  while (person.next()) {
    evidence.people.push_back({goalFrom(person, 3), person.text(5), person.optionalText(6),
                               person.index(2), readReason(person, 7)});
  }
  return evidence;
}

std::vector<std::optional<std::string>> readNames(Database& database, std::int64_t goal,
                                                  const SharedArray<std::string>& personRefs) {
  text::TextMap<std::string_view, std::optional<std::string>> names;
  for (const std::string& personRef : personRefs) names.try_emplace(personRef);
  std::size_t missing = names.size();
  for (const char* sql :
       {"SELECT goal, position, person_ref, display_name FROM people "
        "WHERE goal = ?1 AND display_name IS NOT NULL ORDER BY position",
        "SELECT goal, position, person_ref, display_name FROM people "
        "WHERE goal <> ?1 AND display_name IS NOT NULL ORDER BY goal, position"}) {
    Statement row(database, sql, {"people", 2});
    row.query(goal);
    while (missing > 0 && row.next()) {
      const auto name = names.find(row.text(2));
      if (name == names.end() || name->second) continue;
      name->second = row.text(3);
      --missing;
    }
  }
  std::vector<std::optional<std::string>> inOrder;
  for (const std::string& personRef : personRefs) inOrder.push_back(names.at(personRef));
  return inOrder;
}

}  // namespace vemra::desk
