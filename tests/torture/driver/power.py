"""power: the power fails between any two calls, and the disk forgets what was not synced.

A client's calls are logged once. Each run plays them up to a cut and lets the disk keep of the rest
what it likes: all, nothing, single writes, single sectors of them, or garbage where a file grew;
file names in the order in which they were made. The store that this leaves must hold what was acknowledged before the cut.
"""
from disk_model import Disk
from stand import GOALS, records, require
from story import Story, usual

QUICK = 700
KEPT = {"all": 1, "nothing": 1, "some": 2, "torn": 2, "garbage": 2}  # and how often each is tried


OWN = ".local/share/vemra-desk/goals.sqlite"


def usual_store(stand, shim):
    """The usual story, with an answer to each step."""
    story = usual(stand)
    return story, story.tell(shim).answers


def own_store(stand, shim):
    """An import into the user's own store, whose folders do not exist yet. Its end is its answer."""
    story = Story(stand).load(1)
    ending = stand.desk("import", *[stand.document(goal, 1) for goal in GOALS], shim=shim)
    return story, [(ending.code == 0, "")]


def story_and_log(stand, tell):
    stand.fresh()
    log = stand.root / "power"
    log.unlink(missing_ok=True)
    story, answers = tell(stand, {"LOG": log})
    require(all(good for good, _ in answers), f"the story failed: {answers}")
    changes = [record for record in records(log) if record[0] not in ("call", "fault")]
    if tell is own_store:
        changes.append(("say", "", 0, 0, b""))
    return story, answers, changes


def cases(stand):
    chosen = []
    for tell in (usual_store, own_store):
        changes = stand.once(tell, lambda: story_and_log(stand, tell))[2]
        for cut in range(len(changes) + 1):
            more = 10 if cut == len(changes) else 1  # all is acknowledged there
            chosen += [(tell.__name__, cut, kept) for kept, times in KEPT.items()
                       for _ in range(times * more)]
    return chosen


def run(stand, random, case):
    name, cut, kept = case
    tell = globals()[name]
    story, answers, changes = stand.once(tell, lambda: story_and_log(stand, tell))
    stand.fresh()
    disk = Disk(stand.folder)
    said = 0
    for record in changes[:cut]:
        if record[0] == "say":
            said += 1
        else:
            disk.apply(*record)
    disk.restore(kept, random)
    if tell is own_store:
        store = stand.folder / OWN
        require(store.exists() or not said, "the store that was acknowledged has no name")
        if store.exists():
            story.check(answers[:said], store)
        ending = stand.desk("import", *[stand.document(goal, 9) for goal in GOALS])
        require(ending.code == 0, f"the next import cannot go on: {ending.diagnostics}")
        return
    story.check(answers[:said])
    after = Story(stand).open().load(9).record("g1", "after").tell()
    require(all(good for good, _ in after.answers), f"the next client cannot go on: {after.answers}")
