"""Walks a candidate's screen over the accessibility bus: walk.py PROGRAM CANDIDATE PEOPLE.

Prints one figure a line: the measure, a tab and the number. A walk asks every element for its name,
its role and its children, as a screen reader does.
"""
import os
import statistics
import subprocess
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
warnings.simplefilter("ignore", DeprecationWarning)
from gi.repository import Atspi  # noqa: E402

LONGEST = 300  # seconds for one walk; elements that it has not reached by then count as missing


class Screen:
    def __init__(self, program, candidate, people):
        self.process = subprocess.Popen([program, candidate, "serve", str(people)], text=True,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL)
        if self.process.stdout.readline() != "ready\n":
            raise SystemExit(f"{candidate} did not come up")
        end = time.monotonic() + 10
        self.root = None
        while self.root is None and time.monotonic() < end:
            self.root = self.find_root()
            time.sleep(0.02)
        if self.root is None:
            raise SystemExit(f"{candidate} is not on the bus")

    @staticmethod
    def find_root():
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child and child.get_name() == "vemra-bench-screen" and child.get_child_count():
                return child
        return None

    def processor_seconds(self):
        with open(f"/proc/{self.process.pid}/stat", encoding="utf-8") as stat:
            fields = stat.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def close(self):
        self.process.stdin.close()
        self.process.wait(20)


def elements(node):
    """Every element below, in tree order, with its role and name."""
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if child is None:
            continue
        yield child, child.get_role_name(), child.get_name()
        yield from elements(child)


PATH = "Supported path"  # what stands over the controls below the people


def expected_of(people):
    """Rows by name and controls by section and name, as the sample result has them."""
    names = [f"Person Number {i}" for i in range(people)]
    rows = set(names)
    controls = {(PATH, "See in Starfold"), (PATH, "Record outcome")}
    for i, name in enumerate(names):
        has_outcome = i < 100 and i % 10 == 5
        controls |= {(name, name), (name, "Correct" if has_outcome else "Record outcome")}
        if i % 2 == 0:
            controls.add((name, "Show source"))
    return rows, controls


def walk(screen, people):
    """The whole tree: the time, the number of elements, and the missing rows and controls.

    Each is looked for by itself, so that what is there twice does not stand in for what is not.
    On the way it comes by the button that records an outcome for the last person, which is how a
    script finds it where nothing else is offered.
    """
    expected_rows, expected_controls = expected_of(people)
    rows, controls, count, found = set(), set(), 0, None
    section = PATH  # a tree in another order has those controls ahead of the people
    last = f"Person Number {people - 1}"
    before = screen.processor_seconds()
    start = time.monotonic()
    for _, role, name in elements(screen.root):
        count += 1
        if name in expected_rows:
            rows.add(name)
        if name in expected_rows or name == PATH:
            section = name
        if role in ("push button", "button"):  # the second in later bindings
            controls.add((section, name))
            if not found and section == last and name in ("Record outcome", "Correct"):
                found = time.monotonic() - start
        if time.monotonic() - start > LONGEST:
            break
    seconds = time.monotonic() - start
    program = screen.processor_seconds() - before
    missing = len(expected_rows - rows) + len(expected_controls - controls)
    print(f"elements\t{count}")
    print(f"walk per 1,000 elements\t{1000 * seconds / count * 1000:.3f}")
    print(f"program per 1,000 elements\t{1000 * program / count * 1000:.3f}")
    print(f"missing\t{missing}")
    print(f"exposed\t{1 - missing / (len(expected_rows) + len(expected_controls)):.6f}")
    if found:
        print(f"find by walking\t{1000 * found:.3f}")


def search(page, identifier):
    """Searches the page for an identifier: the elements found, and the time."""
    rule = Atspi.MatchRule.new(
        Atspi.StateSet.new([]), Atspi.CollectionMatchType.ALL,
        {"id": identifier}, Atspi.CollectionMatchType.ALL,
        [], Atspi.CollectionMatchType.ALL, [], Atspi.CollectionMatchType.ALL, False)
    start = time.monotonic()
    found = page.get_matches(rule, Atspi.CollectionSortOrder.CANONICAL, 0, True)
    return found, time.monotonic() - start


def find_by_collection(screen, people):
    """Finds it by its identifier: the first call to the process, and the median of the later ones."""
    page = screen.root.get_child_at_index(0)
    wanted = f"vemra.goal.person.p{people - 1}.outcome.start"
    times = []
    for _ in range(20):
        found, seconds = search(page, wanted)
        times.append(seconds)
        if not found:
            raise SystemExit(f"no {wanted}")
    print(f"find by collection, first\t{1000 * times[0]:.4f}")
    print(f"find by collection\t{1000 * statistics.median(times[1:]):.4f}")


def miss_by_collection(screen):
    """Searches an identifier that is missing: the first call to the process, and the later ones."""
    page = screen.root.get_child_at_index(0)
    times = []
    for _ in range(20):
        found, seconds = search(page, "vemra.goal.nobody")
        times.append(seconds)
        if found:
            raise SystemExit("an element without that identifier was found")
    print(f"miss by collection, first\t{1000 * times[0]:.4f}")
    print(f"miss by collection\t{1000 * statistics.median(times[1:]):.4f}")


def main():
    program, candidate, people = sys.argv[1], sys.argv[2], int(sys.argv[3])
    Atspi.init()
    screen = Screen(program, candidate, people)
    walk(screen, people)
    screen.close()
    if candidate == "vemra":
        screen = Screen(program, candidate, people)  # nothing is kept on either side
        find_by_collection(screen, people)
        screen.close()
        screen = Screen(program, candidate, people)
        miss_by_collection(screen)
        screen.close()


main()
