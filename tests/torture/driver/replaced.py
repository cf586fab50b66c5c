"""replaced: the store is moved, removed or replaced while a client has it open."""
import shutil

from stand import Failure, check_integrity, ended_well, notes_of, require
from story import Story

QUICK = 72
KINDS = ("moved", "removed", "replaced", "replaced-over", "folder moved", "replaced by another goal's")


def cases(stand):
    return [(kind, before, comes_back) for kind in KINDS for before in range(4)
            for comes_back in (False, True) for _ in range(3)]


def run(stand, random, case):
    kind, before, comes_back = case
    backup = stand.once(kind == KINDS[-1], lambda: make_backup(stand, kind == KINDS[-1]))
    stand.fresh()
    away = stand.folder / "away"
    (stand.folder / "here").mkdir()
    store = stand.folder / "here/goals.sqlite"
    documents = [stand.document(goal, 1) for goal in ("g1", "g2")]
    process = stand.start("talk")

    def ask(line):
        process.stdin.write(line + "\n")
        process.stdin.flush()
        answer = process.stdout.readline()
        if not answer:
            ended_well(stand.finish(process))
            raise Failure("the client ended")
        verdict, _, text = answer.rstrip("\n").partition("\t")
        require(verdict == "ok" or str(store) in text, f"{line.split()[0]} names no file: {text!r}")
        return verdict == "ok"

    kept = []
    try:
        require(ask(f"open\t{store}\t300") and ask("\t".join(["import", *documents])), "no store")
        for number in range(before):
            require(ask(f"record\tg1\tkept {number}"), "was not recorded")
            kept.append(f"kept {number}")
        spoil(kind, store, away, backup)
        for number in range(2):
            check_record(stand, ask, store, f"late {number}", kept)
        ask("goals")
        if comes_back and not store.exists():
            store.parent.mkdir(exist_ok=True)
            shutil.copy(backup, store)
        for number in range(2, 4):
            check_record(stand, ask, store, f"late {number}", kept)
    finally:
        ending = stand.finish(process)
    ended_well(ending)
    if store.exists():
        check_integrity(store)
    if kind in ("moved", "folder moved"):
        found = notes_of(stand.content(away / "goals.sqlite")["g1"])
        require(found[:len(kept)] == kept, f"acknowledged before the store moved: {kept}, there: {found}")


def check_record(stand, ask, store, note, kept):
    """An acknowledged outcome is in the file of that name; a refused one is not."""
    acknowledged = ask(f"record\tg1\t{note}")
    goals = stand.content(store) if store.exists() else {}
    notes = [text for goal in goals.values() for text in notes_of(goal)]
    require(not acknowledged or note in notes, f"{note!r} is acknowledged into nothing")
    require(acknowledged or note not in notes, f"{note!r} is refused, but there")
    require(len(set(notes)) == len(notes), f"an outcome is there twice: {notes}")
    if "of the backup" in notes:
        require(not {*notes} & {*kept}, f"outcomes of two stores in one: {notes}")


def make_backup(stand, of_another_goal):
    """Another closed store, with an outcome by which the test recognises it."""
    stand.fresh()
    goal = "other" if of_another_goal else "g1"
    story = Story(stand).open()
    story.steps.append(("load", 1, f"import\t{stand.document(goal, 5)}"))
    ending = story.record(goal, "of the backup").tell()
    require(all(good for good, _ in ending.answers), "the backup cannot be made")
    return shutil.copy(stand.store, stand.root / f"backup-{goal}")


def spoil(kind, store, away, backup):
    if kind == "folder moved":
        store.parent.rename(away)
        return
    if kind != "replaced-over":  # the files beside it go with it
        away.mkdir()
        for file in store.parent.iterdir():
            file.rename(away / file.name)
        if kind == "removed":
            shutil.rmtree(away)
    if kind.startswith("replaced"):
        copy = store.with_name("copy")
        shutil.copy(backup, copy)
        copy.rename(store)
