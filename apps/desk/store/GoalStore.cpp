#include "apps/desk/store/GoalStore.hpp"

#include "apps/desk/store/OutcomeRows.hpp"
#include "apps/desk/store/ResultFault.hpp"
#include "apps/desk/store/ResultRows.hpp"
#include "apps/desk/store/Schema.hpp"
#include "apps/desk/store/Statement.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "apps/desk/store/Transaction.hpp"
#include "apps/documents/DocumentError.hpp"

#include <string>
#include <utility>
#include <vector>

namespace vemra::desk {
namespace {

using enum Transaction::Kind;

/// A transaction on a database whose schema has been confirmed.
class Work : public Transaction {
 public:
  Work(Database& database, SchemaWatch& schema, Kind kind) : Transaction(database, kind) {
    schema.confirm(database);
  }
};

/// Throws a `StoreError` when the result has a fault.
void refuseFault(const Database& database, const GetGoalSnapshotResponse& result,
                 const std::optional<ResultFault>& fault, const std::string& refusal) {
  if (fault) {
    throw StoreError(database.file(), refusal + " the goal " + documents::inQuotes(result.goal.id) +
                                          ": " + fault->pointer + ": " + fault->problem);
  }
}

}  // namespace

std::vector<GoalListing> GoalStore::goals() {
  const Work work(database_, schema_, reading);
  Statement row(database_, "SELECT number, id, title FROM goals ORDER BY number", {"goals", 1});
  std::vector<GoalListing> goals;
  row.query();
  while (row.next()) goals.push_back({row.text(1), row.text(2)});
  database_.confirm();
  return goals;
}

bool GoalStore::hasGoal(const std::string& goalID) {
  const Work work(database_, schema_, reading);
  return find(goalID).has_value();
}

GetGoalSnapshotResponse GoalStore::result(const std::string& goalID) {
  const Work work(database_, schema_, reading);
  const std::int64_t goal = findOrThrow(goalID);
  GetGoalSnapshotResponse result = readShown(goal);
  if (!kept_.hasAllOutcomes()) {
    result.outcomes = readOutcomes(database_, goal);
    database_.confirm();
  }
  return result;
}

GetGoalSnapshotResponse GoalStore::shownResult(const std::string& goalID) {
  const Work work(database_, schema_, reading);
  return readShown(findOrThrow(goalID));
}

GetGoalSnapshotResponse GoalStore::readShown(std::int64_t goal) {
  const Database::Revision revision = database_.revision();
  if (auto kept = kept_.find(goal, revision)) {
    database_.confirm();
    return *std::move(kept);
  }
  const std::optional<ResultStamp> stamp = stampOf(goal);
  if (const auto last = kept_.lastOutcome(goal, stamp)) {
    std::vector<GoalOutcomeDTO> more;
    const std::int64_t newLast = readOutcomesAbove(database_, goal, *last, more);
    database_.confirm();
    return kept_.complete(std::move(more), newLast, revision);
  }
  GetGoalSnapshotResponse result = readResultRows(database_, goal);
  const ShownOutcomes shown = readShownOutcomes(database_, goal, result, schema_.version());
  result.outcomes = shown.outcomes;
  database_.confirm();
  refuseFault(database_, result, faultIn(result), "holds a result that cannot be shown, of");
  kept_.keep(goal, revision, stamp, shown, result);
  return result;
}

std::optional<ResultStamp> GoalStore::stampOf(std::int64_t goal) {
  if (schema_.version() < 2) return std::nullopt;
  Statement row(database_, "SELECT goal, stamp FROM result_stamps WHERE goal = ?1",
                {"result_stamps", 1});
  row.query(goal);
  if (!row.next()) return std::nullopt;  // another program has removed it
  return ResultStamp{schema_.change(), row.integer(1)};
}

SharedArray<GoalOutcomeDTO> GoalStore::outcomes(const std::string& goalID) {
  const Work work(database_, schema_, reading);
  SharedArray<GoalOutcomeDTO> outcomes = readOutcomes(database_, findOrThrow(goalID));
  database_.confirm();
  return outcomes;
}

std::vector<LeftOutOutcome> GoalStore::import(const std::vector<GetGoalSnapshotResponse>& results) {
  Work work(database_, schema_, writing);
  std::vector<LeftOutOutcome> leftOut = importWithin(results);
  work.commit();
  return leftOut;
}

std::vector<LeftOutOutcome> GoalStore::importWithin(
    const std::vector<GetGoalSnapshotResponse>& results) {
  for (const GetGoalSnapshotResponse& result : results) {
    refuseFault(database_, result, faultOfImport(result), "does not take in the result of");
  }
  std::vector<LeftOutOutcome> leftOut;
  for (std::size_t i = 0; i < results.size(); ++i) {
    std::optional<std::int64_t> goal = find(results[i].goal.id);
    if (goal) {
      replaceResult(database_, *goal, results[i]);
    } else {
      goal = addResult(database_, results[i]);
    }
    for (const std::size_t outcome : mergeOutcomes(database_, *goal, results[i].outcomes)) {
      leftOut.push_back({i, outcome});
    }
  }
  return leftOut;
}

GoalOutcomeDTO GoalStore::record(const std::string& goalID, const GoalOutcomeRecordingInput& input,
                                 const std::string& outcomeID, const std::string& recordedAt) {
  return recordAndShow(goalID, input, outcomeID, recordedAt).record;
}

RecordedOutcome GoalStore::recordAndShow(const std::string& goalID,
                                         const GoalOutcomeRecordingInput& input,
                                         const std::string& outcomeID,
                                         const std::string& recordedAt) {
  Work work(database_, schema_, writing);
  const std::int64_t goal = findOrThrow(goalID);
  const Database::Revision start = database_.revision();
  GoalOutcomeDTO outcome;
  outcome.id = outcomeID;
  outcome.goalID = idOf(goal);
  outcome.subjectKind = input.subjectKind();
  outcome.subjectRef = input.subjectRef();
  outcome.value = input.outcome();
  outcome.note = input.note();
  outcome.recordedAt = recordedAt;
  outcome.correctsOutcomeID = input.correctsOutcomeID();
  std::optional<GoalOutcomeDTO> before = recordedBefore(database_, goal, outcome);
  std::int64_t number = 0;
  if (!before) number = OutcomeInsertion(database_).append(goal, outcome);
  const Database::Revision end = database_.revision();
  work.commit();
  if (!before) {
    kept_.addOutcome(goal, outcome, number, start, end);
    return {std::move(outcome), kept_.findAfterCommit(goal, end)};
  }
  // The earlier try may have failed while SQLite wrote the outcome to the disk.
  database_.makeDurable();
  return {*std::move(before), std::nullopt};
}

PersonKnowledge GoalStore::person(const std::string& personRef) {
  const Work work(database_, schema_, reading);
  return readPersonKnowledge(database_, personRef);
}

EvidenceKnowledge GoalStore::evidence(const std::string& evidenceID) {
  const Work work(database_, schema_, reading);
  return readEvidenceKnowledge(database_, evidenceID);
}

std::vector<std::optional<std::string>> GoalStore::names(
    const std::string& goalID, const SharedArray<std::string>& personRefs) {
  const Work work(database_, schema_, reading);
  return readNames(database_, find(goalID).value_or(0), personRefs);
}

std::vector<std::string> GoalStore::storedOutcomes(const std::string& goalID,
                                                   const std::vector<std::string>& outcomeIDs) {
  const Work work(database_, schema_, reading);
  const std::optional<std::int64_t> goal = find(goalID);
  return goal ? recordedAmong(database_, *goal, outcomeIDs) : std::vector<std::string>();
}

std::int64_t GoalStore::version() {
  database_.confirmPlace();
  return database_.version();
}

std::optional<std::int64_t> GoalStore::find(const std::string& goalID) {
  // The first query uses the index and finds almost every goal, by the id byte for byte.
  for (const char* sql : {"SELECT number FROM goals WHERE id = ?1",
                          "SELECT number FROM goals WHERE same_text(id, ?1) ORDER BY number"}) {
    Statement row(database_, sql, {"goals", 0});
    row.query(goalID);
    if (row.next()) return row.integer(0);
  }
  return std::nullopt;
}

std::string GoalStore::idOf(std::int64_t goal) {
  Statement row(database_, "SELECT number, id FROM goals WHERE number = ?1", {"goals", 1});
  row.query(goal);
  row.next();
  return row.text(1);
}

std::int64_t GoalStore::findOrThrow(const std::string& goalID) {
  const std::optional<std::int64_t> goal = find(goalID);
  if (!goal) throw UnknownGoal(database_.file(), goalID);
  return *goal;
}

}  // namespace vemra::desk
