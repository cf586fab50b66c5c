#include "apps/desk/store/CaseNames.hpp"
#include "apps/desk/store/Reason.hpp"
#include "apps/desk/store/ResultRows.hpp"
#include "apps/desk/store/Statement.hpp"
#include "apps/desk/store/StoreError.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Reads a goal's result from its rows.

namespace vemra::desk {
namespace {

using documents::priorityNames;
using documents::statusNames;
using Texts = SharedArray<std::string>;

/// The texts of inner lists, such as the evidence of each person, in the order of their owners.
class InnerLists {
 public:
  /// \param sql Returns goal, owner, position and text of the goal ?1, in this order.
  InnerLists(Database& database, std::string_view sql, const char* table, std::int64_t goal)
      : row_(database, sql, {table, 3}) {
    row_.query(goal);
    isThere_ = row_.next();
  }

  /// The list of the next owner. Call it for each owner once, in ascending order.
  template <class Owner>
  Texts of(const Owner& owner) {
    std::vector<std::string> texts;
    for (; isThere_ && isOf(owner); isThere_ = row_.next()) {
      row_.expectPosition(2, texts.size());
      texts.push_back(row_.text(3));
    }
    return texts;
  }

  /// Call it after the last owner: a remaining row belongs to no owner.
  void finish() {
    if (isThere_) row_.damaged(1, "something that the goal has");
  }

 private:
  bool isOf(std::size_t owner) { return row_.integer(1) == static_cast<std::int64_t>(owner); }
  bool isOf(std::string_view owner) { return row_.text(1) == owner; }

  Statement row_;
  bool isThere_ = false;
};

/// Reads one result from the tables.
class Reading {
 public:
  Reading(Database& database, std::int64_t goal) : database_(database), goal_(goal) {}

  /// The goal, and the sources of its coverage.
  std::pair<GoalDTO, Texts> goalAndSources() {
    InnerLists lists(database_,
                     "SELECT goal, list, position, text FROM goal_texts WHERE goal = ?1 "
                     "ORDER BY list, position",
                     "goal_texts", goal_);
    Texts attachments = lists.of("attachment");
    Texts constraints = lists.of("constraint");
    Texts keywords = lists.of("keyword");
    Texts sources = lists.of("source");
    lists.finish();
    Statement row(database_,
                  "SELECT number, id, title, status, target_person_ref, created_at, updated_at, "
                  "priority, keywords_revision, constraints_revision FROM goals "
                  "WHERE number = ?1",
                  {"goals", 1});
    row.query(goal_);
    if (!row.next()) throw StoreError(database_.file(), "is damaged: a goal is gone");
    GoalDTO goal{row.text(1),
                 row.text(2),
                 readCase<GoalStatus>(row, 3, statusNames),
                 row.optionalText(4),
                 row.text(5),
                 row.text(6),
                 readCase<GoalPriority>(row, 7, priorityNames),
                 std::move(keywords),
                 row.integer(8),
                 std::move(constraints),
                 row.integer(9),
                 std::move(attachments)};
    return {std::move(goal), std::move(sources)};
  }

  SharedArray<GoalPersonCandidateDTO> people() {
    InnerLists evidence(database_,
                        "SELECT goal, person, position, evidence_id FROM person_evidence "
                        "WHERE goal = ?1 ORDER BY person, position",
                        "person_evidence", goal_);
    Statement row(database_,
                  std::string("SELECT goal, position, person_ref, display_name, ") +
                      reasonColumnNames + " FROM people WHERE goal = ?1 ORDER BY position",
                  {"people", 2});
    std::vector<GoalPersonCandidateDTO> people;
    row.query(goal_);
    while (row.next()) {
      row.expectPosition(1, people.size());
      people.push_back(
          {row.text(2), row.optionalText(3), readReason(row, 4), evidence.of(people.size())});
    }
    evidence.finish();
    return people;
  }

  SharedArray<GoalPathCandidateDTO> paths() {
    InnerLists refs(database_,
                    "SELECT goal, path, position, person_ref FROM path_people WHERE goal = ?1 "
                    "ORDER BY path, position",
                    "path_people", goal_);
    Statement row(database_,
                  std::string("SELECT goal, position, strength, ") + reasonColumnNames +
                      " FROM paths WHERE goal = ?1 ORDER BY position",
                  {"paths", 2});
    std::vector<GoalPathCandidateDTO> paths;
    row.query(goal_);
    while (row.next()) {
      row.expectPosition(1, paths.size());
      paths.push_back({refs.of(paths.size()), readReason(row, 3), row.integer(2)});
    }
    refs.finish();
    return paths;
  }

  SharedArray<GoalGroupCandidateDTO> groups() {
    InnerLists refs(database_,
                    "SELECT goal, \"group\", position, person_ref FROM group_people "
                    "WHERE goal = ?1 ORDER BY \"group\", position",
                    "group_people", goal_);
    Statement row(database_,
                  "SELECT goal, position, id FROM groups WHERE goal = ?1 ORDER BY position",
                  {"groups", 2});
    std::vector<GoalGroupCandidateDTO> groups;
    row.query(goal_);
    while (row.next()) {
      row.expectPosition(1, groups.size());
      groups.push_back({row.text(2), refs.of(groups.size())});
    }
    refs.finish();
    return groups;
  }

  GoalCoverageDTO coverage(Texts sources) {
    Statement row(database_,
                  "SELECT goal, evidence_count, latest_evidence_at FROM coverage WHERE goal = ?1",
                  {"coverage", 1});
    row.query(goal_);
    if (!row.next()) {
      throw StoreError(database_.file(),
                       "is damaged: coverage has no row of the goal " + std::to_string(goal_));
    }
    return {std::move(sources), row.integer(1), row.optionalText(2)};
  }

 private:
  Database& database_;
  std::int64_t goal_;
};

}  // namespace

GetGoalSnapshotResponse readResultRows(Database& database, std::int64_t number) {
  Reading reading(database, number);
  GetGoalSnapshotResponse result;
  auto [goal, sources] = reading.goalAndSources();
  result.goal = std::move(goal);
  result.people = reading.people();
  result.paths = reading.paths();
  result.group = reading.groups();
  result.coverage = reading.coverage(std::move(sources));
  return result;
}

}  // namespace vemra::desk
