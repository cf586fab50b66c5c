"""memory: each allocation fails once, or it and all later ones."""
from faults import FOREVER, command_line, judge, prepare
from stand import require

QUICK = 300
COMMANDS = ("import-new", "import", "goals", "outcomes", "export")
EACH = 300  # so many of the first allocations one by one, of the others some


def perform(stand, command, number, times):
    documents = prepare(stand, command, "rest")
    shim = {"MEMORY_AT": number, "MEMORY_TIMES": times, "HURRY": 1}
    return stand.desk(*command_line(stand, command, documents), shim=shim)


def allocations(stand, command):
    """An upper bound for the allocations of a command, at most twice their number."""
    number = EACH
    while perform(stand, command, number, FOREVER).code != 0:
        number *= 2
    return number


def cases(stand):
    return [(command, number, times) for command in COMMANDS
            for count in [allocations(stand, command)]
            for number in [*range(1, EACH), *range(EACH, count, max(1, (count - EACH) // EACH))]
            for times in (1, FOREVER)]


def run(stand, random, case):
    command, number, times = case
    ending = perform(stand, command, number, times)
    judge(stand, command, "rest", ending)
    require(ending.code == 0 or "memory" in ending.diagnostics, f"says {ending.diagnostics!r}")
