#include "apps/desk/store/OutcomeRows.hpp"

#include "VemraPlatform/text/Equality.hpp"
#include "apps/desk/store/CaseNames.hpp"

#include <random>
#include <unordered_map>

namespace vemra::desk {

using documents::outcomeValueNames;
using documents::subjectKindNames;

GoalOutcomeDTO readOutcome(Statement& row, int first) {
  return {row.text(first),
          row.text(first + 1),
          readCase<GoalOutcomeSubjectKind>(row, first + 2, subjectKindNames),
          row.optionalText(first + 3),
          readCase<GoalOutcomeValue>(row, first + 4, outcomeValueNames),
          row.optionalText(first + 5),
          row.optionalText(first + 6),
          row.optionalText(first + 7),
          row.optionalText(first + 8)};
}

std::vector<GoalOutcomeDTO> readOutcomes(Database& database, std::int64_t goal) {
  Statement row(database,
                std::string("SELECT number, ") + outcomeColumnNames +
                    " FROM outcomes WHERE goal = ?1 ORDER BY number",
                {"outcomes", 1});
  std::vector<GoalOutcomeDTO> outcomes;
  row.query(goal);
  while (row.next()) outcomes.push_back(readOutcome(row, 1));
  return outcomes;
}

OutcomeInsertion::OutcomeInsertion(Database& database)
    : insert_(database,
              "INSERT INTO outcomes VALUES (NULL, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10)") {}

void OutcomeInsertion::append(std::int64_t goal, const GoalOutcomeDTO& outcome) {
  insert_.run(goal, outcome.id, outcome.goalID, caseName(outcome.subjectKind), outcome.subjectRef,
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
  OutcomeInsertion insertion(database);
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    Uses& uses = usesOfID[outcomes[i].id];
    const std::size_t use = uses.seen++;
    if (use >= uses.records.size()) {
      insertion.append(goal, outcomes[i]);
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
