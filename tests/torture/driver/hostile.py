"""A client on a damaged store: it works or refuses, and never ends by a signal."""
import json
import shutil
import sqlite3

from stand import ended_well, require
from story import Story


def sample(stand):
    """A folder with a store that has rows in every table."""
    return stand.once("sample", lambda: make(stand))


def make(stand):
    stand.fresh()
    goals = []
    for goal in ("g1", "g2"):
        document = json.loads(open(stand.document(goal, 1), encoding="utf-8").read())
        document["goal"].update(constraints=["here"], attachmentRefs=["a1"])
        document["paths"] = [{"personRefs": ["p0", "p1"], "why": {"kind": "nameMatch"}},
                             {"personRefs": ["p2"], "why": {"kind": "sharedActivity", "threadCount": 1,
                                                            "meetingCount": 2}}]
        document["group"] = [{"id": "grp1", "personRefs": ["p0", "p2"]}]
        path = stand.folder / f"{goal}.json"
        path.write_text(json.dumps(document), encoding="utf-8")
        goals.append(str(path))
    ending = stand.desk("import", "--store", stand.store, *goals)
    require(ending.code == 0, ending.diagnostics)
    ending = Story(stand).open().record("g1", "a", "b").record("g2", "c").tell()
    require(all(good for good, _ in ending.answers), "the sample cannot be made")
    ready = stand.root / "sample"
    ready.mkdir()
    shutil.copy(stand.store, ready)
    return ready


def copy_of_sample(stand):
    ready = sample(stand)
    stand.fresh()
    shutil.copytree(ready, stand.folder, dirs_exist_ok=True)


def use(stand, random):
    """Acts on the store like clients; one of the commands is a program of its own."""
    store = ["--store", stand.store]
    command = random.choice([["goals", *store], ["outcomes", *store, "--goal", "g1"],
                             ["export", *store, "--goal", "g1"],
                             ["import", *store, stand.document("g1", 2)]])
    ending = stand.desk(*command)
    ended_well(ending)
    require(ending.code in (0, 2), f"{command[0]}: exit code {ending.code}: {ending.diagnostics}")
    if ending.code == 2:
        require(stand.store in ending.diagnostics, f"{command[0]}: names no file: {ending.diagnostics!r}")
        require(ending.output == "", f"{command[0]}: it failed, and yet there is output")
        require(len(ending.diagnostics) < 2000, f"{command[0]}: a message of {len(ending.diagnostics)}")
    record = "record\tg1\tnote"
    lines = [f"content\t{stand.store}", f"open\t{stand.store}\t300", "goals", "export\tg1", "export\tg2",
             record, f"import\t{stand.document('g2', 2)}", "export\tg2", "export\tg1"]
    ending = stand.talk(lines)
    ended_well(ending)
    require(ending.code == 0 and len(ending.answers) == len(lines),
            f"ended with {ending.code}: {ending.diagnostics[-300:]}")
    for line, (good, text) in zip(lines, ending.answers):
        require(good or stand.store in text, f"{line.split()[0]} names no file: {text!r}")
    acknowledged, outcome = ending.answers[lines.index(record)]
    if acknowledged:
        look_for(stand, outcome, *ending.answers[-1])


def look_for(stand, outcome, is_read, document):
    """Every acknowledged outcome is there, as far as the store can be read at all."""
    if is_read:
        ids = [each["id"] for each in json.loads(document)["outcomes"]]
        require(ids.count(outcome) == 1, "acknowledged, but not in the goal")
    try:
        connection = sqlite3.connect(stand.store)
        try:
            count, = connection.execute("SELECT count(*) FROM outcomes NOT INDEXED WHERE id = ?",
                                        (outcome,)).fetchone()
        finally:
            connection.close()
    except sqlite3.Error:
        return
    require(count == 1, f"acknowledged, but {count} times in the table")
