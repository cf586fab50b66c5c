"""faults: every call on a file fails once, or it and all later ones, each with every usual error."""
import errno
import json
import shutil

from stand import document, ended_well, notes_of, require
from story import Story

QUICK = 800
ERRORS = ("EIO", "ENOSPC", "EMFILE", "EINTR", "ENOMEM")
FOREVER = 10**9
COMMANDS = ("import-new", "import", "goals", "outcomes", "export", "story")


def prepare(stand, command, state):
    """A folder before a command: with a closed store, or one that a killed client left."""
    ready = stand.once(("faults", state), lambda: make(stand, state))
    stand.fresh()
    if command != "import-new":
        shutil.copytree(ready, stand.folder, dirs_exist_ok=True)
    return [stand.document(goal, 2, people=40) for goal in ("g1", "g2")]


def make(stand, state):
    stand.fresh()
    before = Story(stand).open().load(1).record("g1", "a").record("g2", "b")
    last = before.record("g1", "c").open()  # opening anew closes, and so empties the log
    lines = len(last.steps)
    if state == "killed":
        process = stand.start("talk")
        for _, _, line in last.steps[:lines - 1]:
            process.stdin.write(line + "\n")
            process.stdin.flush()
            require(process.stdout.readline().startswith("ok"), "the store cannot be made")
        process.kill()
        stand.finish(process)
    else:
        require(all(good for good, _ in last.tell().answers), "the store cannot be made")
    for file in stand.folder.glob("*.json"):
        file.unlink()
    ready = stand.root / f"faults-{state}"
    shutil.copytree(stand.folder, ready)
    return ready


def command_line(stand, command, documents):
    store = ["--store", stand.store]
    return {"import-new": ["import", *store, *documents], "import": ["import", *store, *documents],
            "goals": ["goals", *store], "outcomes": ["outcomes", *store, "--goal", "g1"],
            "export": ["export", *store, "--goal", "g1"]}[command]


def story(stand):
    told = Story(stand, 300).open().record("g1", "d", "e").load(2, people=40).record("g2", "f")
    told.steps = [(kind, what, f"{line}\tid of {what[1]}" if kind == "record" else line)
                  for kind, what, line in told.steps]
    return told


def perform(stand, command, state, shim):
    documents = prepare(stand, command, state)
    if command == "story":
        return story(stand).tell(shim)
    return stand.desk(*command_line(stand, command, documents), shim=shim)


def cases(stand):
    all_cases = []
    for command in COMMANDS:
        for state in ("rest", "killed") if command != "import-new" else ("rest",):
            calls = stand.calls(lambda shim: perform(stand, command, state, shim))
            all_cases += [(command, state, number, *act, call)
                          for number, call in enumerate(calls, start=1) for act in acts(call)]
    return all_cases


def acts(call):
    """The ways in which a call may fail, once or from then on."""
    once = [(error, 1) for error in ERRORS]
    for_ever = [(error, FOREVER) for error in ERRORS if error != "EINTR"]
    return once + for_ever + ([("short", FOREVER)] if call.startswith("pwrite") else [])


def run(stand, random, case):
    command, state, number, act, times, _ = case
    documents = prepare(stand, command, state)
    shim = {"AT": number, "TIMES": times, "ACT": getattr(errno, act, act), "HURRY": 1}
    if command == "story":
        check_story(stand, case, shim)
        return
    ending = stand.desk(*command_line(stand, command, documents), shim=shim)
    require(act != "short" or ending.code == 0, f"half a write is no error: {ending.diagnostics}")
    require(ending.code != 2 or str(stand.folder) in ending.diagnostics,
            f"names no file: {ending.diagnostics!r}")
    judge(stand, command, state, ending, uncertain(case))


def judge(stand, command, state, ending, is_uncertain=False):
    """A successful command did all its work; a failed one has changed nothing and names the reason."""
    before = content_before(stand, command, state)
    ended_well(ending)
    require(ending.code in (0, 2), f"exit code {ending.code}: {ending.diagnostics}")
    if ending.code == 2:
        require(ending.diagnostics != "" and ending.output == "", "it failed, and yet there is output")
        after = stand.content()
        require(after == before or is_uncertain, "it failed, and yet something is changed")
        if after == before:
            return
    if command in ("import", "import-new"):
        after = stand.content()
        for goal in ("g1", "g2"):
            kept = before.get(goal, {}).get("outcomes", [])
            wanted = {**document(goal, 2, 40), "outcomes": kept}
            require(matches(after.get(goal), wanted), f"{goal} is not as imported")
    else:
        require(ending.output == expected(stand, command, before), f"wrong output {ending.output!r}")
        require(stand.content() == before, "a command that reads has changed something")


def uncertain(case):
    """Whether a refused step may be in the store at the next start.

    When the sync that ends a step fails and nothing works any more, it cannot be undone either: all of
    it stands in the log that the next client finds.
    """
    _, _, _, _, times, call = case
    return times == FOREVER and call == "fdatasync goals.sqlite-wal"


def content_before(stand, command, state):
    if command == "import-new":
        return {}
    return stand.once(("content", state), lambda: content_of_copy(stand, state))


def content_of_copy(stand, state):
    copy = stand.root / "copy"
    shutil.copytree(stand.once(("faults", state), lambda: make(stand, state)), copy)
    content = stand.content(copy / "goals.sqlite")
    shutil.rmtree(copy)
    return content


def expected(stand, command, before):
    if command == "goals":
        return "".join(f"{goal}\t{before[goal]['goal']['title']}\n" for goal in before)
    key = ("output", command, json.dumps(before))
    return stand.once(key, lambda: stand.desk(*command_line(stand, command, [])).output)


def matches(found, wanted):
    """Whether a document has the imported content; it may add only the engine's own fields."""
    if isinstance(wanted, dict):
        return isinstance(found, dict) and all(matches(found.get(key), wanted[key]) for key in wanted)
    if isinstance(wanted, list):
        return len(found) == len(wanted) and all(map(matches, found, wanted))
    return found == wanted


def check_story(stand, case, shim):
    told = story(stand)
    told.steps = [("load", 1, ""), ("record", ("g1", "a"), ""), ("record", ("g2", "b"), ""),
                  ("record", ("g1", "c"), ""), *told.steps]
    known = 4
    ending = stand.talk([line for _, _, line in told.steps[known:]], shim=shim)
    ended_well(ending)
    answers = ending.answers
    require(len(answers) == len(told.steps) - known, f"only {len(answers)} answers")
    for good, text in answers:
        require(good or str(stand.folder) in text, f"names no file: {text!r}")
    refused = [step for step, (good, _) in zip(told.steps[known:], answers) if not good]
    told.check([(True, "")] * known + answers, uncertain=refused[:1] if uncertain(case) else ())
    try_again(stand, [step for step in refused if step[0] == "record"])


def try_again(stand, refused):
    """Records the refused outcomes again, with the same ids: afterwards each is there once."""
    lines = [f"open\t{stand.store}\t300", *[line for _, _, line in refused]]
    for good, text in stand.talk(lines).answers:
        require(good or "has no goal" in text, f"cannot be tried again: {text}")
    goals = stand.content()
    for _, (goal, note), _ in refused:
        notes = notes_of(goals[goal])
        require(notes.count(note) == 1, f"tried again, {note!r} is there {notes.count(note)} times")
