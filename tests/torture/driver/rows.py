"""rows: values, rows and tables in a store that vemra-desk never writes."""
import sqlite3

from hostile import copy_of_sample, use

QUICK = 300
VALUES = (None, 0, 1, -1, -2, 2**31, 2**30, 2**62, 2**63 - 1, -(2**63), 0.5, 1e300, "", "x", "g1", "p1",
          b"", b"\xff\xfe", b"\x00", "\0", "évidence", "connection", "evidence", "1", "a" * 100_000)
KINDS = ("values", "rows", "deletion", "schema")


def cases(stand):
    return [(kind, number) for kind in KINDS for number in range(300)]


def run(stand, random, case):
    kind, _ = case
    copy_of_sample(stand)
    kept = None
    if kind != "schema":
        connection = opened(stand)
        kept = loosen(connection)
        connection.close()
    connection = opened(stand)
    tables = [name for name, in connection.execute(
        "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite_%'")]
    for _ in range(random.randint(1, 3)):
        spoil(connection, random, kind, tables)
    if kept:  # as if the tables were as they ever were
        restore(connection, kept)
    connection.close()
    use(stand, random)


def opened(stand):
    connection = sqlite3.connect(stand.store, isolation_level=None)
    connection.execute("PRAGMA foreign_keys = OFF")
    return connection


def loosen(connection):
    """Removes checks, types and triggers from the schema; returns the previous schema."""
    kept = connection.execute("SELECT rowid, type, name, tbl_name, rootpage, sql FROM sqlite_schema"
                              ).fetchall()
    connection.execute("PRAGMA writable_schema = ON")
    for rowid, kind, _, _, _, sql in kept:
        if kind == "trigger":
            connection.execute("DELETE FROM sqlite_schema WHERE rowid = ?", (rowid,))
        elif kind == "table" and sql:
            connection.execute("UPDATE sqlite_schema SET sql = ? WHERE rowid = ?",
                               (loose(sql), rowid))
    return kept


def loose(sql):
    """A table's SQL without CHECK, NOT NULL and STRICT."""
    while "CHECK (" in sql:
        start = end = sql.index("CHECK (")
        depth = 0
        while True:
            depth += {"(": 1, ")": -1}.get(sql[end], 0)
            end += 1
            if depth == 0 and sql[end - 1] == ")":
                break
        sql = sql[:start] + sql[end:]
    return (sql.replace("NOT NULL", "").replace(") STRICT, WITHOUT", ") WITHOUT")
            .replace(") STRICT", ")"))


def restore(connection, kept):
    connection.execute("PRAGMA writable_schema = ON")
    connection.execute("DELETE FROM sqlite_schema")
    connection.executemany(
        "INSERT INTO sqlite_schema (rowid, type, name, tbl_name, rootpage, sql) "
        "VALUES (?, ?, ?, ?, ?, ?)", kept)


def spoil(connection, random, kind, tables):
    table = random.choice(tables)
    columns = [row[1] for row in connection.execute(f'PRAGMA table_info("{table}")')]
    if not columns:
        return  # the table is gone by now
    column = random.choice(columns)
    try:
        if kind == "values":
            connection.execute(f'UPDATE OR IGNORE "{table}" SET "{column}" = ?',
                               (random.choice(VALUES),))
        elif kind == "rows":
            marks = ", ".join("?" * len(columns))
            for _ in range(random.choice((1, 3, 200))):
                connection.execute(f'INSERT OR IGNORE INTO "{table}" VALUES ({marks})',
                                   [random.choice(VALUES) for _ in columns])
        elif kind == "deletion":
            connection.execute(f'DELETE FROM "{table}" WHERE random() % 2 = 0')
        else:
            connection.executescript(random.choice(schemas(table, column)))
    except sqlite3.Error:
        pass  # the spoilt store refuses to be spoilt further


def schemas(table, column):
    endless = "WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n) SELECT x FROM n"
    return [
        f'DROP TABLE "{table}"',
        f'ALTER TABLE "{table}" RENAME TO moved',
        f'ALTER TABLE "{table}" RENAME COLUMN "{column}" TO moved',
        f'ALTER TABLE "{table}" ADD COLUMN more',
        f'CREATE TRIGGER mine AFTER INSERT ON "{table}" BEGIN DELETE FROM outcomes; END',
        f'CREATE TRIGGER mine BEFORE INSERT ON "{table}" BEGIN SELECT max(x) FROM ({endless}); END',
        f"ALTER TABLE goals RENAME TO real; CREATE VIEW goals AS SELECT x AS number, x AS id, "
        f"x AS title FROM ({endless})",
        f"CREATE VIEW mine AS {endless}",
        f'CREATE UNIQUE INDEX mine ON "{table}" ("{column}")',
        "PRAGMA user_version = 99", "PRAGMA user_version = 0", "PRAGMA application_id = 7",
        "PRAGMA journal_mode = DELETE", "PRAGMA encoding = 'UTF-16'"]
