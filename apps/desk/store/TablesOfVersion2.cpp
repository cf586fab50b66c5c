#include "apps/desk/store/Tables.hpp"

#include <iterator>

// What version 2 adds, so that a program reads only what has changed and what a screen shows.
//
// These texts are part of existing stores: not even a blank may change without a new version.

namespace vemra::desk {
namespace {

/// The triggers that change the stamp of a goal when a row of this list changes.
void addStampTriggers(std::vector<SchemaObject>& objects, const std::string& table) {
  const auto add = [&](const std::string& what, const std::string& event,
                       const std::string& goals) {
    const std::string name = "stamp_" + table + what;
    objects.push_back({"trigger", name,
                       "CREATE TRIGGER " + name + " AFTER " + event + " ON " + table +
                           "\nBEGIN UPDATE result_stamps SET stamp = random() WHERE goal IN (" +
                           goals + "); END"});
  };
  add("_added", "INSERT", "NEW.goal");
  add("_changed", "UPDATE", "OLD.goal, NEW.goal");
  add("_removed", "DELETE", "OLD.goal");
}

std::vector<SchemaObject> objectsOfVersion2() {
  std::vector<SchemaObject> objects{
      // The stamp of a goal is another random number after each change of its result, its outcomes
      // not counted. A counter could have one number for two contents, when a backup is restored.
      {"table", "result_stamps", R"sql(CREATE TABLE result_stamps (
  goal  INTEGER PRIMARY KEY,
  stamp INTEGER NOT NULL
) STRICT)sql"},
      {"trigger", "stamp_goals_added", R"sql(CREATE TRIGGER stamp_goals_added AFTER INSERT ON goals
BEGIN
  DELETE FROM result_stamps WHERE goal = NEW.number;
  INSERT INTO result_stamps VALUES (NEW.number, random());
END)sql"},
      {"trigger", "stamp_goals_changed",
       R"sql(CREATE TRIGGER stamp_goals_changed AFTER UPDATE ON goals
BEGIN
  DELETE FROM result_stamps WHERE goal IN (OLD.number, NEW.number);
  INSERT INTO result_stamps VALUES (NEW.number, random());
END)sql"},
      {"trigger", "stamp_goals_removed",
       R"sql(CREATE TRIGGER stamp_goals_removed AFTER DELETE ON goals
BEGIN DELETE FROM result_stamps WHERE goal = OLD.number; END)sql"},
      // Outcomes are only added, and nearly always with the highest number: a program that has read up to
      // a number then reads those above it. Another program may choose a lower number.
      {"trigger", "stamp_outcomes_added_before",
       R"sql(CREATE TRIGGER stamp_outcomes_added_before AFTER INSERT ON outcomes
WHEN NEW.number < (SELECT max(number) FROM outcomes)
BEGIN UPDATE result_stamps SET stamp = random() WHERE goal = NEW.goal; END)sql"},
      {"index", "outcomes_of_subject",
       R"sql(CREATE INDEX outcomes_of_subject ON outcomes (goal, subject_kind, subject_ref, number))sql"},
      // References that are not ASCII: a search by bytes may miss them, since a text with other
      // bytes may be canonically equivalent. For an ASCII text, length() counts as many characters
      // as there are bytes; it ends at U+0000.
      {"index", "outcomes_beyond_ascii",
       R"sql(CREATE INDEX outcomes_beyond_ascii ON outcomes (goal, subject_kind, subject_ref, number)
WHERE length(subject_ref) <> length(CAST(subject_ref AS BLOB)))sql"},
  };
  for (const char* table : {"goal_texts", "people", "person_evidence", "paths", "path_people",
                            "groups", "group_people", "coverage"}) {
    addStampTriggers(objects, table);
  }
  return objects;
}

}  // namespace

std::span<const SchemaObject> tablesOfVersion(int version) {
  static const std::vector<SchemaObject> objects = [] {
    std::vector<SchemaObject> all = tablesOfVersion1();
    std::vector<SchemaObject> added = objectsOfVersion2();
    all.insert(all.end(), std::move_iterator(added.begin()), std::move_iterator(added.end()));
    return all;
  }();
  return std::span(objects).first(version == 1 ? tablesOfVersion1().size() : objects.size());
}

std::span<const SchemaObject> addedByVersion2() {
  return tablesOfVersion(2).subspan(tablesOfVersion1().size());
}

}  // namespace vemra::desk
