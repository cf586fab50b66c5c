-- A store as vemra-desk wrote it with version 1 of the tables.
PRAGMA application_id = 1450001515;
PRAGMA user_version = 1;
PRAGMA foreign_keys=OFF;
BEGIN TRANSACTION;
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
INSERT INTO goals VALUES(1,'g','Ein Ziel','paused','p9','2025-01-01T00:00:00Z','','high',2,0);
CREATE TABLE goal_texts (
  goal     INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  list     TEXT NOT NULL CHECK (list IN ('keyword', 'constraint', 'attachment', 'source')),
  position INTEGER NOT NULL CHECK (position >= 0),
  text     TEXT NOT NULL,
  PRIMARY KEY (goal, list, position)
) STRICT, WITHOUT ROWID;
INSERT INTO goal_texts VALUES(1,'attachment',0,'file-1');
INSERT INTO goal_texts VALUES(1,'constraint',0,'soon');
INSERT INTO goal_texts VALUES(1,'keyword',0,'design');
INSERT INTO goal_texts VALUES(1,'keyword',1,'lead');
INSERT INTO goal_texts VALUES(1,'source',0,'Mail');
INSERT INTO goal_texts VALUES(1,'source',1,'Calendar');
CREATE TABLE people (
  goal              INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  position          INTEGER NOT NULL CHECK (position >= 0),
  person_ref        TEXT NOT NULL,
  display_name      TEXT,
  why_kind          TEXT NOT NULL
    CHECK (why_kind IN ('evidence', 'connection', 'sharedActivity', 'nameMatch', 'generic')),
  why_label         TEXT CHECK ((why_kind = 'evidence') = (why_label IS NOT NULL)),
  why_detail        TEXT CHECK ((why_kind = 'evidence') = (why_detail IS NOT NULL)),
  why_reference     TEXT CHECK ((why_kind = 'evidence') = (why_reference IS NOT NULL)),
  why_hop_count     INTEGER CHECK ((why_kind = 'connection') = (why_hop_count IS NOT NULL)),
  why_thread_count  INTEGER CHECK ((why_kind = 'sharedActivity') = (why_thread_count IS NOT NULL)),
  why_meeting_count INTEGER
    CHECK ((why_kind = 'sharedActivity') = (why_meeting_count IS NOT NULL)),
  PRIMARY KEY (goal, position)
) STRICT, WITHOUT ROWID;
INSERT INTO people VALUES(1,0,'p1','Ada','connection',NULL,NULL,NULL,2,NULL,NULL);
INSERT INTO people VALUES(1,1,'p2',NULL,'evidence','Email','Asked','e1',NULL,NULL,NULL);
INSERT INTO people VALUES(1,2,'p3','','sharedActivity',NULL,NULL,NULL,NULL,1,2);
CREATE TABLE person_evidence (
  goal        INTEGER NOT NULL,
  person      INTEGER NOT NULL,
  position    INTEGER NOT NULL CHECK (position >= 0),
  evidence_id TEXT NOT NULL,
  PRIMARY KEY (goal, person, position),
  FOREIGN KEY (goal, person) REFERENCES people (goal, position) ON DELETE CASCADE
) STRICT, WITHOUT ROWID;
INSERT INTO person_evidence VALUES(1,0,0,'e1');
INSERT INTO person_evidence VALUES(1,0,1,'e2');
CREATE TABLE paths (
  goal              INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  position          INTEGER NOT NULL CHECK (position >= 0),
  strength          INTEGER NOT NULL,
  why_kind          TEXT NOT NULL
    CHECK (why_kind IN ('evidence', 'connection', 'sharedActivity', 'nameMatch', 'generic')),
  why_label         TEXT CHECK ((why_kind = 'evidence') = (why_label IS NOT NULL)),
  why_detail        TEXT CHECK ((why_kind = 'evidence') = (why_detail IS NOT NULL)),
  why_reference     TEXT CHECK ((why_kind = 'evidence') = (why_reference IS NOT NULL)),
  why_hop_count     INTEGER CHECK ((why_kind = 'connection') = (why_hop_count IS NOT NULL)),
  why_thread_count  INTEGER CHECK ((why_kind = 'sharedActivity') = (why_thread_count IS NOT NULL)),
  why_meeting_count INTEGER
    CHECK ((why_kind = 'sharedActivity') = (why_meeting_count IS NOT NULL)),
  PRIMARY KEY (goal, position)
) STRICT, WITHOUT ROWID;
INSERT INTO paths VALUES(1,0,3,'nameMatch',NULL,NULL,NULL,NULL,NULL,NULL);
CREATE TABLE path_people (
  goal       INTEGER NOT NULL,
  path       INTEGER NOT NULL,
  position   INTEGER NOT NULL CHECK (position >= 0),
  person_ref TEXT NOT NULL,
  PRIMARY KEY (goal, path, position),
  FOREIGN KEY (goal, path) REFERENCES paths (goal, position) ON DELETE CASCADE
) STRICT, WITHOUT ROWID;
INSERT INTO path_people VALUES(1,0,0,'p1');
INSERT INTO path_people VALUES(1,0,1,'p9');
CREATE TABLE groups (
  goal     INTEGER NOT NULL REFERENCES goals (number) ON DELETE CASCADE,
  position INTEGER NOT NULL CHECK (position >= 0),
  id       TEXT NOT NULL,
  PRIMARY KEY (goal, position)
) STRICT, WITHOUT ROWID;
INSERT INTO "groups" VALUES(1,0,'grp');
CREATE TABLE group_people (
  goal        INTEGER NOT NULL,
  "group"     INTEGER NOT NULL,
  position    INTEGER NOT NULL CHECK (position >= 0),
  person_ref  TEXT NOT NULL,
  PRIMARY KEY (goal, "group", position),
  FOREIGN KEY (goal, "group") REFERENCES groups (goal, position) ON DELETE CASCADE
) STRICT, WITHOUT ROWID;
INSERT INTO group_people VALUES(1,0,0,'p1');
CREATE TABLE coverage (
  goal               INTEGER PRIMARY KEY REFERENCES goals (number) ON DELETE CASCADE,
  evidence_count     INTEGER NOT NULL,
  latest_evidence_at TEXT
) STRICT;
INSERT INTO coverage VALUES(1,2,'2025-01-05T10:00:00Z');
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
INSERT INTO outcomes VALUES(1,1,'o1','','person','p1','helped','it''s ü',NULL,NULL,NULL);
DELETE FROM sqlite_sequence;
INSERT INTO sqlite_sequence VALUES('outcomes',1);
CREATE INDEX outcomes_of_goal ON outcomes (goal, number);
CREATE INDEX outcomes_by_id ON outcomes (id);
CREATE TRIGGER outcomes_stay_as_recorded BEFORE UPDATE ON outcomes
BEGIN SELECT RAISE(ABORT, 'a recorded outcome is never rewritten'); END;
CREATE TRIGGER outcomes_stay BEFORE DELETE ON outcomes
BEGIN SELECT RAISE(ABORT, 'a recorded outcome is never removed'); END;
CREATE TRIGGER outcomes_are_appended BEFORE INSERT ON outcomes
WHEN EXISTS (SELECT 1 FROM outcomes WHERE number = NEW.number)
BEGIN SELECT RAISE(ABORT, 'a recorded outcome is never replaced'); END;
COMMIT;
