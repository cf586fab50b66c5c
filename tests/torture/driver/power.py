"""power: the power fails between any two calls, and the disk forgets what was not synced.

A client's calls are logged once. Each run plays them up to a cut and lets the disk keep of the rest
what it likes: all, nothing, or single sectors of single writes; file names in the order in which
they were made. The store that this leaves must hold what was acknowledged before the cut.
"""
from disk_model import Disk
from stand import records, require
from story import Story, usual

QUICK = 700
KEPT = ("all", "nothing", "some", "torn")
TIMES = 2  # of the random ways


def story_and_log(stand):
    stand.fresh()
    story = usual(stand)
    log = stand.root / "power"
    log.unlink(missing_ok=True)
    ending = story.tell({"LOG": log})
    require(all(good for good, _ in ending.answers), f"the story failed: {ending.answers}")
    changes = [record for record in records(log) if record[0] not in ("call", "fault")]
    return story, ending.answers, changes


def cases(stand):
    _, _, changes = stand.once("power", lambda: story_and_log(stand))
    return [(cut, kept) for cut in range(len(changes) + 1)
            for kept in KEPT for _ in range(TIMES if kept in ("some", "torn") else 1)]


def run(stand, random, case):
    cut, kept = case
    story, answers, changes = stand.once("power", lambda: story_and_log(stand))
    stand.fresh()
    disk = Disk(str(stand.folder))
    said = 0
    for record in changes[:cut]:
        if record[0] == "say":
            said += 1
        else:
            disk.apply(*record)
    for name, content in disk.after_power_loss(kept, random).items():
        (stand.folder / name).write_bytes(content)
    story.check(answers[:said])
    after = Story(stand).open().load(9).record("g1", "after").tell()
    require(all(good for good, _ in after.answers), f"the next client cannot go on: {after.answers}")
