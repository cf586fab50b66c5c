#include "apps/desk/store/OutcomeRows.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "apps/desk/store/CaseNames.hpp"

#include <random>
#include <unordered_map>

namespace vemra::desk {

using documents::outcomeValueNames;
using documents::subjectKindNames;

std::vector<GoalOutcomeDTO> readOutcomes(Database& database, std::int64_t goal) {
  Statement row(database,
                "SELECT id, goal_id, subject_kind, subject_ref, value, note, recorded_at, "
                "recorded_by, corrects_outcome_id FROM outcomes WHERE goal = ?1 ORDER BY number");
  std::vector<GoalOutcomeDTO> outcomes;
  row.query(goal);
  while (row.next()) {
    outcomes.push_back(
        {row.text(0), row.text(1),
         readCase<GoalOutcomeSubjectKind>(database, row.text(2), subjectKindNames),
         row.optionalText(3), readCase<GoalOutcomeValue>(database, row.text(4), outcomeValueNames),
         row.optionalText(5), row.optionalText(6), row.optionalText(7), row.optionalText(8)});
  }
  return outcomes;
}

void appendOutcome(Database& database, std::int64_t goal, const GoalOutcomeDTO& outcome) {
  Statement(database, "INSERT INTO outcomes VALUES (NULL, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10)")
      .run(goal, outcome.id, outcome.goalID, caseName(outcome.subjectKind), outcome.subjectRef,
           caseName(outcome.value), outcome.note, outcome.recordedAt, outcome.recordedBy,
           outcome.correctsOutcomeID);
}

std::vector<std::size_t> mergeOutcomes(Database& database, std::int64_t goal,
                                       const SharedArray<GoalOutcomeDTO>& outcomes) {
  const std::vector<GoalOutcomeDTO> recorded = readOutcomes(database, goal);
  struct Uses {
    std::vector<const GoalOutcomeDTO*> records;
    std::size_t seen = 0;
  };
  std::unordered_map<std::string_view, Uses, text::Hash, text::Equal> usesOfID;
  for (const GoalOutcomeDTO& record : recorded) usesOfID[record.id].records.push_back(&record);

  std::vector<std::size_t> leftOut;
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    Uses& uses = usesOfID[outcomes[i].id];
    const std::size_t use = uses.seen++;
    if (use >= uses.records.size()) {
      appendOutcome(database, goal, outcomes[i]);
    } else if (!(outcomes[i] == *uses.records[use])) {
      leftOut.push_back(i);
    }
  }
  return leftOut;
}

std::string newOutcomeID(Database& database) {
  std::random_device random;
  Statement used(database, "SELECT 1 FROM outcomes WHERE id = ?1");
  while (true) {
    // 128 random bits never meet in practice; the question makes it a certainty for this store.
    std::string id = "outcome-";
    for (int word = 0; word < 4; ++word) {
      const std::uint32_t bits = random();
      for (int shift = 28; shift >= 0; shift -= 4) id += "0123456789abcdef"[(bits >> shift) & 15];
    }
    used.query(id);
    if (!used.next()) return id;
  }
}

}  // namespace vemra::desk
