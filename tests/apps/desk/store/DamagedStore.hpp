#pragma once

#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreError.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/SampleResults.hpp"
#include "tests/apps/desk/store/StoreFile.hpp"

#include <functional>
#include <string>

#include <gtest/gtest.h>

namespace vemra::desk {
/// A store with rows in every table, and another program that damages it.
class DamagedStore : public StoreFile {
 protected:
  DamagedStore() { GoalStore::open(file).import({rich()}); }

  /// A goal with the id "g": three people, a path, a group, texts of each list, one outcome.
  static GetGoalSnapshotResponse rich() {
    GetGoalSnapshotResponse result =
        goal("g", "t", {outcome("o1", "p1", GoalOutcomeValue::helped)});
    result.goal.keywords = {"k1", "k2"};
    result.goal.constraints = {"c1"};
    result.goal.attachmentRefs = {"a1"};
    result.people = {{"p1", "Ada", GoalWhyDTO::connection(2), {"e1", "e2"}},
                     {"p2", "Bo", GoalWhyDTO::evidence("Email", "Asked", "e1"), {}},
                     {"p3", {}, GoalWhyDTO::sharedActivity(1, 2), {"e3"}}};
    result.paths = {{{"p1", "p9"}, GoalWhyDTO::nameMatch(), 3}};
    result.group = {{"grp", {"p1"}}};
    result.coverage.sources = {"Mail", "Calendar"};
    return result;
  }

  /// Writes like a program that obeys no rules except types and NOT NULL.
  void damage(const std::string& sql) const {
    RawDatabase raw(file);
    EXPECT_EQ(raw.run("PRAGMA ignore_check_constraints = ON; PRAGMA foreign_keys = OFF; " + sql),
              "")
        << sql;
  }

  /// Writes while one table has no rules, not even types and NOT NULL.
  void damage(const std::string& table, const std::string& sql) const {
    const std::string of = " WHERE type = 'table' AND name = '" + table + "'";
    const std::string unlock = "PRAGMA writable_schema = ON; ";
    const std::string kept = RawDatabase(file).value("SELECT quote(sql) FROM sqlite_schema" + of);
    std::string loose = "sql";
    for (const char* rules : {"'STRICT, ', ''", "') STRICT', ')'", "'TEXT NOT NULL', 'TEXT'",
                              "'INTEGER NOT NULL', 'INTEGER'"}) {
      loose = "replace(" + loose + ", " + rules + ")";
    }
    EXPECT_EQ(RawDatabase(file).run(unlock + "UPDATE sqlite_schema SET sql = " + loose + of), "");
    damage(sql);
    EXPECT_EQ(RawDatabase(file).run(unlock + "UPDATE sqlite_schema SET sql = " + kept + of), "");
  }

  /// The message of the failure behind the file's name and "is damaged: ".
  std::string errorOf(const std::function<void(GoalStore&)>& act) const {
    try {
      GoalStore store = GoalStore::open(file);
      act(store);
    } catch (const StoreError& error) {
      const std::string start = file + ": is damaged: ";
      const std::string text = error.what();
      return text.starts_with(start) ? text.substr(start.size()) : text;
    }
    return "no error";
  }
  std::string errorOfResult() const {
    return errorOf([](GoalStore& store) { store.result("g"); });
  }

  /// Another store of the same kind, for the next case.
  void startAgain() {
    std::filesystem::remove(file);
    std::filesystem::remove(file + "-wal");
    std::filesystem::remove(file + "-shm");
    GoalStore::open(file).import({rich()});
  }
};

}  // namespace vemra::desk
