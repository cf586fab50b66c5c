"""kill: a client ends by SIGKILL before, or in the middle of, each of its calls on files."""
from stand import require
from story import Story, usual

QUICK = 300


def cases(stand):
    stand.fresh()
    calls = stand.calls(lambda shim: usual(stand).tell(shim))
    return [(number, act, call) for number, call in enumerate(calls, start=1)
            for act in ("kill", "kill-half")
            if act == "kill" or call.startswith("pwrite")]


def run(stand, random, case):
    number, act, _ = case
    stand.fresh()
    story = usual(stand)
    ending = story.tell({"AT": number, "ACT": act})
    require(ending.code == -9, f"was to be killed, but ended with {ending.code}")
    story.check(ending.answers)
    # The next client continues normally.
    after = Story(stand).open().load(9).record("g1", "after")
    require(all(good for good, _ in after.tell().answers), "the next client cannot go on")
