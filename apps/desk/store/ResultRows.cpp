#include "apps/desk/store/ResultRows.hpp"

#include "apps/desk/store/CaseNames.hpp"
#include "apps/desk/store/Reason.hpp"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vemra::desk {
namespace {

using documents::nameIn;
using documents::priorityNames;
using documents::statusNames;
using Texts = SharedArray<std::string>;

/// One result on its way into the tables.
class Writing {
 public:
  Writing(Database& database, std::int64_t goal) : database_(database), goal_(goal) {}

  void lists(const GetGoalSnapshotResponse& result) {
    Statement insert(database_, "INSERT INTO goal_texts VALUES (?1, ?2, ?3, ?4)");
    const auto list = [&](std::string_view name, const Texts& texts) {
      for (std::size_t i = 0; i < texts.size(); ++i) insert.run(goal_, name, i, texts[i]);
    };
    list("keyword", result.goal.keywords);
    list("constraint", result.goal.constraints);
    list("attachment", result.goal.attachmentRefs);
    list("source", result.coverage.sources);
    Statement(database_, "INSERT INTO coverage VALUES (?1, ?2, ?3)")
        .run(goal_, result.coverage.evidenceCount, result.coverage.latestEvidenceAt);
  }

  void people(const SharedArray<GoalPersonCandidateDTO>& people) {
    Statement insert(database_,
                     "INSERT INTO people VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11)");
    Statement insertEvidence(database_, "INSERT INTO person_evidence VALUES (?1, ?2, ?3, ?4)");
    for (std::size_t i = 0; i < people.size(); ++i) {
      const GoalPersonCandidateDTO& person = people[i];
      const ReasonColumns why(person.why);
      insert.run(goal_, i, person.personRef, person.displayName, why.kind, why.label, why.detail,
                 why.reference, why.hopCount, why.threadCount, why.meetingCount);
      each(insertEvidence, i, person.evidenceIDs);
    }
  }

  void paths(const SharedArray<GoalPathCandidateDTO>& paths) {
    Statement insert(database_,
                     "INSERT INTO paths VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10)");
    Statement insertPerson(database_, "INSERT INTO path_people VALUES (?1, ?2, ?3, ?4)");
    for (std::size_t i = 0; i < paths.size(); ++i) {
      const ReasonColumns why(paths[i].why);
      insert.run(goal_, i, paths[i].strength, why.kind, why.label, why.detail, why.reference,
                 why.hopCount, why.threadCount, why.meetingCount);
      each(insertPerson, i, paths[i].personRefs);
    }
  }

  void groups(const SharedArray<GoalGroupCandidateDTO>& groups) {
    Statement insert(database_, "INSERT INTO groups VALUES (?1, ?2, ?3)");
    Statement insertPerson(database_, "INSERT INTO group_people VALUES (?1, ?2, ?3, ?4)");
    for (std::size_t i = 0; i < groups.size(); ++i) {
      insert.run(goal_, i, groups[i].id);
      each(insertPerson, i, groups[i].personRefs);
    }
  }

  void everything(const GetGoalSnapshotResponse& result) {
    lists(result);
    people(result.people);
    paths(result.paths);
    groups(result.group);
  }

 private:
  void each(Statement& insert, std::size_t owner, const Texts& texts) const {
    for (std::size_t i = 0; i < texts.size(); ++i) insert.run(goal_, owner, i, texts[i]);
  }

  Database& database_;
  std::int64_t goal_;
};

/// One result on its way out of the tables.
class Reading {
 public:
  Reading(Database& database, std::int64_t goal) : database_(database), goal_(goal) {}

  GoalDTO goal() {
    Statement row(database_,
                  "SELECT id, title, status, target_person_ref, created_at, updated_at, priority, "
                  "keywords_revision, constraints_revision FROM goals WHERE number = ?1");
    row.query(goal_);
    if (!row.next()) throw StoreError(database_.file(), "is damaged: a goal is gone");
    return {row.text(0),
            row.text(1),
            readCase<GoalStatus>(database_, row.text(2), statusNames),
            row.optionalText(3),
            row.text(4),
            row.text(5),
            readCase<GoalPriority>(database_, row.text(6), priorityNames),
            list("keyword"),
            row.integer(7),
            list("constraint"),
            row.integer(8),
            list("attachment")};
  }

  SharedArray<GoalPersonCandidateDTO> people() {
    auto evidence = lists(
        "SELECT person, evidence_id FROM person_evidence WHERE goal = ?1 "
        "ORDER BY person, position");
    Statement row(database_, std::string("SELECT person_ref, display_name, ") + reasonColumnNames +
                                 " FROM people WHERE goal = ?1 ORDER BY position");
    std::vector<GoalPersonCandidateDTO> people;
    row.query(goal_);
    while (row.next()) {
      people.push_back({row.text(0), row.optionalText(1), readReason(database_, row, 2),
                        take(evidence, people.size())});
    }
    return people;
  }

  SharedArray<GoalPathCandidateDTO> paths() {
    auto refs = lists(
        "SELECT path, person_ref FROM path_people WHERE goal = ?1 "
        "ORDER BY path, position");
    Statement row(database_, std::string("SELECT strength, ") + reasonColumnNames +
                                 " FROM paths WHERE goal = ?1 ORDER BY position");
    std::vector<GoalPathCandidateDTO> paths;
    row.query(goal_);
    while (row.next()) {
      paths.push_back({take(refs, paths.size()), readReason(database_, row, 1), row.integer(0)});
    }
    return paths;
  }

  SharedArray<GoalGroupCandidateDTO> groups() {
    auto refs = lists(
        "SELECT \"group\", person_ref FROM group_people WHERE goal = ?1 "
        "ORDER BY \"group\", position");
    Statement row(database_, "SELECT id FROM groups WHERE goal = ?1 ORDER BY position");
    std::vector<GoalGroupCandidateDTO> groups;
    row.query(goal_);
    while (row.next()) groups.push_back({row.text(0), take(refs, groups.size())});
    return groups;
  }

  GoalCoverageDTO coverage() {
    Statement row(database_,
                  "SELECT evidence_count, latest_evidence_at FROM coverage WHERE goal = ?1");
    row.query(goal_);
    if (!row.next()) throw StoreError(database_.file(), "is damaged: a goal has no coverage");
    return {list("source"), row.integer(0), row.optionalText(1)};
  }

 private:
  /// The texts that belong to each element of an outer list.
  using Lists = std::vector<std::vector<std::string>>;

  Texts list(std::string_view name) {
    Statement row(database_,
                  "SELECT text FROM goal_texts WHERE goal = ?1 AND list = ?2 ORDER BY position");
    std::vector<std::string> texts;
    row.query(goal_, name);
    while (row.next()) texts.push_back(row.text(0));
    return texts;
  }

  Lists lists(std::string_view sql) {
    Statement row(database_, sql);
    Lists lists;
    row.query(goal_);
    while (row.next()) {
      const auto owner = static_cast<std::size_t>(row.integer(0));
      if (lists.size() <= owner) lists.resize(owner + 1);
      lists[owner].push_back(row.text(1));
    }
    return lists;
  }

  static Texts take(Lists& lists, std::size_t owner) {
    return owner < lists.size() ? Texts(std::move(lists[owner])) : Texts();
  }

  Database& database_;
  std::int64_t goal_;
};

}  // namespace

std::int64_t addResult(Database& database, const GetGoalSnapshotResponse& result) {
  const GoalDTO& goal = result.goal;
  Statement(database, "INSERT INTO goals VALUES (NULL, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)")
      .run(goal.id, goal.title, nameIn(statusNames, goal.status), goal.targetPersonRef,
           goal.createdAt, goal.updatedAt, nameIn(priorityNames, goal.priority),
           goal.keywordsRevision, goal.constraintsRevision);
  const std::int64_t number = database.number("SELECT last_insert_rowid()");
  Writing(database, number).everything(result);
  return number;
}

void replaceResult(Database& database, std::int64_t number, const GetGoalSnapshotResponse& result) {
  for (const char* table : {"goal_texts", "people", "paths", "groups", "coverage"}) {
    Statement(database, std::string("DELETE FROM ") + table + " WHERE goal = ?1").run(number);
  }
  const GoalDTO& goal = result.goal;
  Statement(database,
            "UPDATE goals SET id = ?2, title = ?3, status = ?4, target_person_ref = ?5, "
            "created_at = ?6, updated_at = ?7, priority = ?8, keywords_revision = ?9, "
            "constraints_revision = ?10 WHERE number = ?1")
      .run(number, goal.id, goal.title, nameIn(statusNames, goal.status), goal.targetPersonRef,
           goal.createdAt, goal.updatedAt, nameIn(priorityNames, goal.priority),
           goal.keywordsRevision, goal.constraintsRevision);
  Writing(database, number).everything(result);
}

GetGoalSnapshotResponse readResultRows(Database& database, std::int64_t number) {
  Reading reading(database, number);
  GetGoalSnapshotResponse result;
  result.goal = reading.goal();
  result.people = reading.people();
  result.paths = reading.paths();
  result.group = reading.groups();
  result.coverage = reading.coverage();
  return result;
}

}  // namespace vemra::desk
