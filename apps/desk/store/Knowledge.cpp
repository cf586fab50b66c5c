#include "apps/desk/store/Knowledge.hpp"

#include "apps/desk/store/CaseNames.hpp"
#include "apps/desk/store/Reason.hpp"

namespace vemra::desk {
namespace {

std::vector<std::string> texts(Database& database, const char* sql, const std::string& value) {
  Statement row(database, sql);
  std::vector<std::string> texts;
  row.query(value);
  while (row.next()) texts.push_back(row.text(0));
  return texts;
}

std::vector<PersonKnowledge::Suggestion> suggestions(Database& database,
                                                     const std::string& personRef) {
  Statement row(database, std::string("SELECT goal, position, title, display_name, ") +
                              reasonColumnNames +
                              " FROM people JOIN goals ON number = goal "
                              "WHERE same_text(person_ref, ?1) ORDER BY goal, position");
  Statement evidence(database,
                     "SELECT evidence_id FROM person_evidence WHERE goal = ?1 AND person = ?2 "
                     "ORDER BY position");
  std::vector<PersonKnowledge::Suggestion> suggestions;
  row.query(personRef);
  while (row.next()) {
    suggestions.push_back({row.text(2), row.optionalText(3), readReason(database, row, 4), {}});
    const std::int64_t goal = row.integer(0);
    const std::int64_t person = row.integer(1);
    evidence.query(goal, person);
    while (evidence.next()) suggestions.back().evidenceIDs.push_back(evidence.text(0));
  }
  return suggestions;
}

std::vector<PersonKnowledge::Outcome> outcomes(Database& database, const std::string& personRef) {
  Statement row(database,
                "SELECT title, outcomes.id, goal_id, subject_ref, value, note, recorded_at, "
                "recorded_by, corrects_outcome_id "
                "FROM outcomes JOIN goals ON goals.number = goal "
                "WHERE subject_kind = 'person' AND same_text(subject_ref, ?1) "
                "ORDER BY outcomes.number");
  std::vector<PersonKnowledge::Outcome> outcomes;
  row.query(personRef);
  while (row.next()) {
    outcomes.push_back(
        {row.text(0),
         {row.text(1), row.text(2), GoalOutcomeSubjectKind::person, row.optionalText(3),
          readCase<GoalOutcomeValue>(database, row.text(4), documents::outcomeValueNames),
          row.optionalText(5), row.optionalText(6), row.optionalText(7), row.optionalText(8)}});
  }
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
  person.goalsTowards = texts(database,
                              "SELECT title FROM goals WHERE same_text(target_person_ref, ?1) "
                              "ORDER BY number",
                              personRef);
  person.goalsWithPaths =
      texts(database,
            "SELECT title FROM goals WHERE number IN "
            "(SELECT goal FROM path_people WHERE same_text(person_ref, ?1)) ORDER BY number",
            personRef);
  person.outcomes = outcomes(database, personRef);
  return person;
}

EvidenceKnowledge readEvidenceKnowledge(Database& database, const std::string& evidenceID) {
  EvidenceKnowledge evidence;
  evidence.evidenceID = evidenceID;
  Statement statement(database,
                      "SELECT DISTINCT title, why_label, why_detail FROM "
                      "(SELECT goal, 0 AS part, position, why_label, why_detail, why_reference "
                      "FROM people UNION ALL "
                      "SELECT goal, 1, position, why_label, why_detail, why_reference FROM paths) "
                      "JOIN goals ON number = goal WHERE same_text(why_reference, ?1) "
                      "ORDER BY goal, part, position");
  statement.query(evidenceID);
  while (statement.next()) {
    evidence.statements.push_back({statement.text(0), statement.text(1), statement.text(2)});
  }
  Statement person(database, std::string("SELECT title, person_ref, display_name, "
                                         "person_evidence.position, ") +
                                 reasonColumnNames +
                                 " FROM person_evidence "
                                 "JOIN people ON people.goal = person_evidence.goal "
                                 "AND people.position = person "
                                 "JOIN goals ON number = people.goal "
                                 "WHERE same_text(evidence_id, ?1) "
                                 "ORDER BY people.goal, people.position");
  person.query(evidenceID);
  while (person.next()) {
    evidence.people.push_back({person.text(0), person.text(1), person.optionalText(2),
                               static_cast<std::size_t>(person.integer(3)),
                               readReason(database, person, 4)});
  }
  return evidence;
}

}  // namespace vemra::desk
