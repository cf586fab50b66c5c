"""The environment of a run: its folder, the programs, and the expected content of a store."""
import json
import os
import pathlib
import resource
import shutil
import signal
import sqlite3
import subprocess
import tempfile

GOALS = ("g1", "g2")


class Failure(Exception):
    """A failure that a run has found."""


def require(condition, problem):
    if not condition:
        raise Failure(problem)


class Ending:
    """The end of a program: `code` is negative for a signal."""

    def __init__(self, code, output, diagnostics):
        self.code, self.output, self.diagnostics = code, output, diagnostics

    @property
    def answers(self):
        """The answers of a conversation: (whether it is `ok`, the text). A cut line is no answer."""
        lines = self.output.split("\n")[:-1]
        return [(line.startswith("ok\t"), line.partition("\t")[2]) for line in lines]


# The limits of a program: more is a failure and not a slow machine.
SECONDS = 60
MEMORY = 1 << 30


class Stand:
    """The programs of a build, and a folder for one run after another."""

    def __init__(self, programs, quick):
        # A short round does not use vemra-desk, which loads the toolkit although commands do not
        # need it.
        desk = programs / "bin/vemra-desk"
        self.desk_program = str(desk) if desk.exists() and not quick else None
        self.client = str(programs / "tests/vemra-torture-client")
        self.shim = str(programs / "tests/vemra-torture-shim.so")
        if pathlib.Path(self.shim).exists():  # else a sanitizer reserves addresses by the terabyte
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        memory = pathlib.Path("/dev/shm")  # no run needs a disk; what a disk forgets is simulated
        self.base = memory if os.access(memory, os.W_OK) else pathlib.Path(tempfile.gettempdir())
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="vemra-torture-", dir=self.base))
        self.kept = {}
        self.folder = None
        self.reader = None

    def close(self):
        self.stop_reading()
        shutil.rmtree(self.root, ignore_errors=True)

    def fresh(self):
        """An empty folder for the next run."""
        self.folder = self.root / "run"
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir()
        return self.folder

    def once(self, name, make):
        """The result of `make`, which is called only once."""
        if name not in self.kept:
            self.kept[name] = make()
        return self.kept[name]

    @property
    def store(self):
        return str(self.folder / "goals.sqlite")

    def environment(self, shim):
        variables = {"PATH": os.environ.get("PATH", ""), "LC_ALL": "C.UTF-8", "TZ": "UTC",
                     "HOME": str(self.folder)}
        variables.update({name: value for name, value in os.environ.items() if name.startswith("ASAN")})
        if shim is not None:
            variables["LD_PRELOAD"] = self.shim
            variables["VEMRA_SHIM_FOLDER"] = str(self.folder)
            variables.update({f"VEMRA_SHIM_{name}": str(value) for name, value in shim.items()})
        return variables

    def start(self, *arguments, shim=None, program=None):
        return subprocess.Popen(
            [program or self.client, *arguments], env=self.environment(shim), stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, encoding="utf-8",
            errors="surrogateescape")

    def finish(self, process, text=""):
        try:
            output, diagnostics = process.communicate(text, timeout=SECONDS)
        except subprocess.TimeoutExpired:
            process.kill()
            process.communicate()
            raise Failure(f"did not end within {SECONDS} s") from None
        return Ending(process.returncode, output, diagnostics)

    def desk(self, *arguments, shim=None):
        """Runs a command of vemra-desk to its end."""
        return self.finish(self.start(*arguments, shim=shim, program=self.desk_program))

    def talk(self, lines, shim=None):
        """Lets a client carry out all lines."""
        return self.finish(self.start("talk", shim=shim), "".join(line + "\n" for line in lines))

    def calls(self, run):
        """The calls that the shim counts while `run(shim)` runs: `pwrite goals.sqlite-wal`, …"""
        log = self.root / "calls"
        log.unlink(missing_ok=True)
        run({"LOG": log})
        return [record[1].replace(f"{self.folder}/", "") for record in records(log)
                if record[0] == "call"]

    def document(self, goal, version, people=3):
        """Writes a result document in which every text contains its version."""
        path = self.folder / f"{goal}-{version}.json"
        if not path.exists():
            path.write_text(json.dumps(document(goal, version, people)), encoding="utf-8")
        return str(path)

    def content(self, store=None):
        """The goals of a store as vemra-desk reads them: {id: document}."""
        if self.reader is None:
            self.reader = self.start("talk")
        self.reader.stdin.write(f"content\t{store or self.store}\n")
        self.reader.stdin.flush()
        answer = self.reader.stdout.readline()
        if not answer:
            self.stop_reading()
            raise Failure("a client that read the store ended")
        verdict, _, text = answer.rstrip("\n").partition("\t")
        require(verdict == "ok", f"the store cannot be read: {text}")
        return {goal["goal"]["id"]: goal for goal in json.loads(text)}

    def stop_reading(self):
        if self.reader is not None:
            self.reader.communicate()
            self.reader = None


def document(goal, version, people=3):
    return {
        "goal": {"id": goal, "title": f"version {version}", "keywords": [f"version {version}"]},
        "people": [{"personRef": f"p{i}", "displayName": f"version {version}",
                    "why": {"kind": "connection", "hopCount": people},
                    "evidenceIDs": [f"ev{i}", f"version {version}"]} for i in range(people)],
        "paths": [], "group": [], "outcomes": [],
        "coverage": {"sources": [f"version {version}"], "evidenceCount": people}}


def version_of(goal):
    """The version of a goal; all its parts must have the same."""
    version = int(goal["goal"]["title"].removeprefix("version "))
    people = goal["coverage"]["evidenceCount"]
    expected = document(goal["goal"]["id"], version, people)
    require(goal["people"] == expected["people"], f"the people of version {version} are not whole")
    require(goal["coverage"]["sources"] == [f"version {version}"], "coverage of another version")
    return version


def notes_of(goal):
    return [outcome["note"] for outcome in goal["outcomes"]]


def check_integrity(store):
    """SQLite finds no damage in the database, and no broken references between its rows."""
    connection = sqlite3.connect(store)
    try:
        for check, good in (("integrity_check", [("ok",)]), ("foreign_key_check", [])):
            found = connection.execute(f"PRAGMA {check}").fetchall()
            require(found == good, f"{check}: {found[:3]}")
    except sqlite3.DatabaseError as error:
        raise Failure(f"SQLite cannot read the store: {error}") from None
    finally:
        connection.close()


def records(log):
    """The records of the shim's log: (call, path, inode, offset, data)."""
    data = pathlib.Path(log).read_bytes()
    place = 0
    while place < len(data):
        end = data.index(b"\n", place)
        call, path, inode, offset, length = data[place:end].decode().split("\t")
        place = end + 1 + (int(length) if call in ("write", "say", "rename") else 0)
        yield call, path, int(inode), int(offset), data[end + 1:place]


def ended_well(ending):
    """A program must not end by a signal."""
    if ending.code < 0:
        raise Failure(f"ended by {signal.Signals(-ending.code).name}: {ending.diagnostics[-300:]}")
