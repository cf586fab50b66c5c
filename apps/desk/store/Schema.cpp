#include "apps/desk/store/Schema.hpp"

#include "apps/desk/store/StoreError.hpp"

#include <string>

namespace vemra::desk {
namespace {

constexpr std::int64_t applicationID = 0x566D446B;  // "VmDk"

// The reason of a person or a path stands in its row: the kind, and exactly the columns that the
// kind has a use for.
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

// Lists keep their order in `position`, counted from 0. `number` of a goal is the order in which
// goals came, that of an outcome the order of recording.
std::string tables() {
  return std::string(R"sql(
CREATE TABLE goals (
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
) STRICT;

CREATE TABLE goal_texts (
  goal     INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  list     TEXT NOT NULL CHECK (list IN ('keyword', 'constraint', 'attachment', 'source')),
  position INTEGER NOT NULL CHECK (position >= 0),
  text     TEXT NOT NULL,
  PRIMARY KEY (goal, list, position)
) STRICT, WITHOUT ROWID;

CREATE TABLE people (
  goal              INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  position          INTEGER NOT NULL CHECK (position >= 0),
  person_ref        TEXT NOT NULL,
  display_name      TEXT,)sql") +
         reasonColumns + R"sql(
  PRIMARY KEY (goal, position)
) STRICT, WITHOUT ROWID;

CREATE TABLE person_evidence (
  goal        INTEGER NOT NULL,
  person      INTEGER NOT NULL,
  position    INTEGER NOT NULL CHECK (position >= 0),
  evidence_id TEXT NOT NULL,
  PRIMARY KEY (goal, person, position),
  FOREIGN KEY (goal, person) REFERENCES people (goal, position) ON DELETE CASCADE
) STRICT, WITHOUT ROWID;

CREATE TABLE paths (
  goal              INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  position          INTEGER NOT NULL CHECK (position >= 0),
  strength          INTEGER NOT NULL,)sql" +
         reasonColumns + R"sql(
  PRIMARY KEY (goal, position)
) STRICT, WITHOUT ROWID;

CREATE TABLE path_people (
  goal       INTEGER NOT NULL,
  path       INTEGER NOT NULL,
  position   INTEGER NOT NULL CHECK (position >= 0),
  person_ref TEXT NOT NULL,
  PRIMARY KEY (goal, path, position),
  FOREIGN KEY (goal, path) REFERENCES paths (goal, position) ON DELETE CASCADE
) STRICT, WITHOUT ROWID;

CREATE TABLE groups (
  goal     INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  position INTEGER NOT NULL CHECK (position >= 0),
  id       TEXT NOT NULL,
  PRIMARY KEY (goal, position)
) STRICT, WITHOUT ROWID;

CREATE TABLE group_people (
  goal        INTEGER NOT NULL,
  "group"     INTEGER NOT NULL,
  position    INTEGER NOT NULL CHECK (position >= 0),
  person_ref  TEXT NOT NULL,
  PRIMARY KEY (goal, "group", position),
  FOREIGN KEY (goal, "group") REFERENCES groups (goal, position) ON DELETE CASCADE
) STRICT, WITHOUT ROWID;

CREATE TABLE coverage (
  goal               INTEGER PRIMARY KEY REFERENCES goals (number) ON DELETE CASCADE,
  evidence_count     INTEGER NOT NULL,
  latest_evidence_at TEXT
) STRICT;

CREATE TABLE outcomes (
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
) STRICT;
CREATE INDEX outcomes_of_goal ON outcomes (goal, number);
CREATE INDEX outcomes_by_id ON outcomes (id);

CREATE TRIGGER outcomes_stay_as_recorded BEFORE UPDATE ON outcomes
BEGIN SELECT RAISE(ABORT, 'a recorded outcome is never rewritten'); END;

CREATE TRIGGER outcomes_stay BEFORE DELETE ON outcomes
BEGIN SELECT RAISE(ABORT, 'a recorded outcome is never removed'); END;

-- INSERT OR REPLACE would remove the old row without a word to the trigger above.
CREATE TRIGGER outcomes_are_appended BEFORE INSERT ON outcomes
WHEN EXISTS (SELECT 1 FROM outcomes WHERE number = NEW.number)
BEGIN SELECT RAISE(ABORT, 'a recorded outcome is never replaced'); END;
)sql";
}

std::int64_t tableCount(Database& database) {
  return database.number("SELECT count(*) FROM sqlite_schema");
}

/// Reads in several steps: the caller holds a transaction, so that they speak of one moment.
bool hasSchemaNow(Database& database) {
  const std::int64_t owner = database.number("PRAGMA application_id");
  const std::int64_t version = database.number("PRAGMA user_version");
  if (owner == 0 && version == 0 && tableCount(database) == 0) return false;
  if (owner != applicationID) {
    throw StoreError(database.file(), "is an SQLite database, but not a store of goals");
  }
  if (version > schemaVersion) {
    throw StoreError(database.file(), "was written by a newer vemra-desk: its version is " +
                                          std::to_string(version) + ", this one knows " +
                                          std::to_string(schemaVersion));
  }
  if (version < schemaVersion) throw StoreError(database.file(), "is damaged: it has no version");
  return true;
}

}  // namespace

bool hasSchema(Database& database) {
  // Another process may be making the schema right now: all of it is seen, or nothing.
  const Transaction transaction(database, Transaction::Kind::reading);
  return hasSchemaNow(database);
}

void prepareSchema(Database& database) {
  if (hasSchema(database)) return;
  Transaction transaction(database, Transaction::Kind::writing);
  if (hasSchemaNow(database)) return;  // another process was faster
  database.run(tables().c_str());
  database.run(("PRAGMA application_id = " + std::to_string(applicationID)).c_str());
  database.run(("PRAGMA user_version = " + std::to_string(schemaVersion)).c_str());
  transaction.commit();
}

}  // namespace vemra::desk
