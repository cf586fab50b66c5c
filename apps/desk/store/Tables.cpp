#include "apps/desk/store/Tables.hpp"

namespace vemra::desk {
namespace {

// The reason of a person or a path is part of its row: the kind, and exactly the columns that the
// kind uses.
constexpr const char* reasonColumns = R"sql(
  why_kind          TEXT NOT NULL
    CHECK (why_kind IN ('evidence', 'connection', 'sharedActivity', 'nameMatch', 'generic')),
  why_label         TEXT CHECK ((why_kind = 'evidence') = (why_label IS NOT NULL)),
  why_detail        TEXT CHECK ((why_kind = 'evidence') = (why_detail IS NOT NULL)),
  why_reference     TEXT CHECK ((why_kind = 'evidence') = (why_reference IS NOT NULL)),
  why_hop_count     INTEGER CHECK ((why_kind = 'connection') = (why_hop_count IS NOT NULL)),
  why_thread_count  INTEGER CHECK ((why_kind = 'sharedActivity') = (why_thread_count IS NOT NULL)),
  why_meeting_count INTEGER
    CHECK ((why_kind = 'sharedActivity') = (why_meeting_count IS NOT NULL)),)sql";

}  // namespace

// Lists keep their order in `position`, counted from 0. A goal's `number` gives the order in which
// goals were added, an outcome's `number` the order of recording.
//
// These texts are part of every existing store: not even a blank may change without a new version.
const std::vector<SchemaObject>& tablesOfVersion1() {
  static const std::vector<SchemaObject> objects{
      {"table", "goals", R"sql(CREATE TABLE goals (
  number               INTEGER PRIMARY KEY,
  id                   TEXT NOT NULL UNIQUE,
  title                TEXT NOT NULL,
  status               TEXT NOT NULL
    CHECK (status IN ('active', 'paused', 'reached', 'abandoned')),
  target_person_ref    TEXT,
  created_at           TEXT NOT NULL,
  updated_at           TEXT NOT NULL,
  priority             TEXT NOT NULL CHECK (priority IN ('normal', 'high', 'low')),
  keywords_revision    INTEGER NOT NULL,
  constraints_revision INTEGER NOT NULL
) STRICT)sql"},
      {"table", "goal_texts", R"sql(CREATE TABLE goal_texts (
  goal     INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  list     TEXT NOT NULL CHECK (list IN ('keyword', 'constraint', 'attachment', 'source')),
  position INTEGER NOT NULL CHECK (position >= 0),
  text     TEXT NOT NULL,
  PRIMARY KEY (goal, list, position)
) STRICT, WITHOUT ROWID)sql"},
      {"table", "people",
       std::string(R"sql(CREATE TABLE people (
  goal              INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  position          INTEGER NOT NULL CHECK (position >= 0),
  person_ref        TEXT NOT NULL,
  display_name      TEXT,)sql") +
           reasonColumns + R"sql(
  PRIMARY KEY (goal, position)
) STRICT, WITHOUT ROWID)sql"},
      {"table", "person_evidence", R"sql(CREATE TABLE person_evidence (
  goal        INTEGER NOT NULL,
  person      INTEGER NOT NULL,
  position    INTEGER NOT NULL CHECK (position >= 0),
  evidence_id TEXT NOT NULL,
  PRIMARY KEY (goal, person, position),
  FOREIGN KEY (goal, person) REFERENCES people (goal, position) ON DELETE CASCADE
) STRICT, WITHOUT ROWID)sql"},
      {"table", "paths",
       std::string(R"sql(CREATE TABLE paths (
  goal              INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  position          INTEGER NOT NULL CHECK (position >= 0),
  strength          INTEGER NOT NULL,)sql") +
           reasonColumns + R"sql(
  PRIMARY KEY (goal, position)
) STRICT, WITHOUT ROWID)sql"},
      {"table", "path_people", R"sql(CREATE TABLE path_people (
  goal       INTEGER NOT NULL,
  path       INTEGER NOT NULL,
  position   INTEGER NOT NULL CHECK (position >= 0),
  person_ref TEXT NOT NULL,
  PRIMARY KEY (goal, path, position),
  FOREIGN KEY (goal, path) REFERENCES paths (goal, position) ON DELETE CASCADE
) STRICT, WITHOUT ROWID)sql"},
      {"table", "groups", R"sql(CREATE TABLE groups (
  goal     INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  position INTEGER NOT NULL CHECK (position >= 0),
  id       TEXT NOT NULL,
  PRIMARY KEY (goal, position)
) STRICT, WITHOUT ROWID)sql"},
      {"table", "group_people", R"sql(CREATE TABLE group_people (
  goal        INTEGER NOT NULL,
  "group"     INTEGER NOT NULL,
  position    INTEGER NOT NULL CHECK (position >= 0),
  person_ref  TEXT NOT NULL,
  PRIMARY KEY (goal, "group", position),
  FOREIGN KEY (goal, "group") REFERENCES groups (goal, position) ON DELETE CASCADE
) STRICT, WITHOUT ROWID)sql"},
      {"table", "coverage", R"sql(CREATE TABLE coverage (
  goal               INTEGER PRIMARY KEY REFERENCES goals (number) ON DELETE CASCADE,
  evidence_count     INTEGER NOT NULL,
  latest_evidence_at TEXT
) STRICT)sql"},
      {"table", "outcomes", R"sql(CREATE TABLE outcomes (
  number              INTEGER PRIMARY KEY AUTOINCREMENT,
  goal                INTEGER NOT NULL REFERENCES goals (number) ON DELETE RESTRICT,
  id                  TEXT NOT NULL,
  goal_id             TEXT NOT NULL,
  subject_kind        TEXT NOT NULL CHECK (subject_kind IN ('person', 'path')),
  subject_ref         TEXT,
  value               TEXT NOT NULL
    CHECK (value IN ('reachedOut', 'invited', 'introduced', 'helped', 'wasUseful', 'notAFit',
                     'noActionTaken', 'somethingElse')),
  note                TEXT,
  recorded_at         TEXT,
  recorded_by         TEXT,
  corrects_outcome_id TEXT
) STRICT)sql"},
      {"index", "outcomes_of_goal",
       R"sql(CREATE INDEX outcomes_of_goal ON outcomes (goal, number))sql"},
      {"index", "outcomes_by_id", R"sql(CREATE INDEX outcomes_by_id ON outcomes (id))sql"},
      {"trigger", "outcomes_stay_as_recorded",
       R"sql(CREATE TRIGGER outcomes_stay_as_recorded BEFORE UPDATE ON outcomes
BEGIN SELECT RAISE(ABORT, 'a recorded outcome is never rewritten'); END)sql"},
      {"trigger", "outcomes_stay", R"sql(CREATE TRIGGER outcomes_stay BEFORE DELETE ON outcomes
BEGIN SELECT RAISE(ABORT, 'a recorded outcome is never removed'); END)sql"},
      // INSERT OR REPLACE would remove the old row without firing the trigger above.
      {"trigger", "outcomes_are_appended",
       R"sql(CREATE TRIGGER outcomes_are_appended BEFORE INSERT ON outcomes
WHEN EXISTS (SELECT 1 FROM outcomes WHERE number = NEW.number)
BEGIN SELECT RAISE(ABORT, 'a recorded outcome is never replaced'); END)sql"},
  };
  return objects;
}

}  // namespace vemra::desk
