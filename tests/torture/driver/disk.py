"""disk: the disk is full after each number of bytes; later there is room again."""
from stand import ended_well, require
from story import Story, usual

QUICK = 200
STEP = 512


def import_new(stand, shim):
    documents = [stand.document(goal, 1, people=40) for goal in ("g1", "g2")]
    return stand.desk("import", "--store", stand.store, *documents, shim=shim)


def taken(stand, run):
    """The number of bytes that a run needs: with so many, no write fails."""
    quota = STEP
    while True:
        stand.fresh()
        ending = run(stand, {"QUOTA": quota})
        if ending.code == 0 and all(good for good, _ in ending.answers if ending.output):
            return quota
        quota *= 2


def tell(stand, shim):
    return usual(stand).tell(shim)


def cases(stand):
    return [(kind, quota) for kind, run in (("import", import_new), ("story", tell))
            for quota in range(0, taken(stand, run), STEP)]


def run(stand, random, case):
    kind, quota = case
    stand.fresh()
    if kind == "import":
        ending = import_new(stand, {"QUOTA": quota})
        ended_well(ending)
        require(ending.code in (0, 2), f"exit code {ending.code}: {ending.diagnostics}")
        goals = stand.content()
        if ending.code == 0:
            require([*goals] == ["g1", "g2"], f"imported, but there are only {[*goals]}")
        else:
            check_message(stand, ending.diagnostics)
            require(not goals, f"refused, but there are {[*goals]}")
        return
    # One client: the disk is full at some time, until there is room again; then the client
    # continues.
    switch = stand.folder / "room"
    story = usual(stand)
    full = len(story.steps)
    story.record("g1", "room again").load(5).record("g2", "room again")
    process = stand.start("talk", shim={"QUOTA": quota, "OFF": switch})
    answers = []
    for number, (_, _, line) in enumerate(story.steps):
        if number == full:
            switch.touch()
        process.stdin.write(line + "\n")
        process.stdin.flush()
        verdict, _, text = process.stdout.readline().rstrip("\n").partition("\t")
        answers.append((verdict == "ok", text))
    ended_well(stand.finish(process))
    for good, text in answers[:full]:
        if not good and "has no goal" not in text:
            check_message(stand, text)
    if answers[2][0] or answers[1][0]:
        require(answers[full][0], f"there is room again, but: {answers[full][1]}")
    require(answers[full + 1][0], f"there is room again, but: {answers[full + 1][1]}")
    story.check(answers)


def check_message(stand, text):
    require(stand.store in text, f"names no file: {text!r}")
    require("disk is full" in text, f"does not say that the disk is full: {text!r}")
