"""Walks a candidate's screen over the accessibility bus: walk.py PROGRAM CANDIDATE PEOPLE.

Prints one figure a line: the measure, a tab and the number. A walk asks every element for its name,
its role and its children, as a screen reader does.
"""
import os
import subprocess
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
warnings.simplefilter("ignore", DeprecationWarning)
from gi.repository import Atspi  # noqa: E402

LONGEST = 300  # seconds for one walk; a screen that takes longer is told so by its share


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


def walk(screen, people):
    """The whole tree: how long it took, how much there is, and what of it is rows and controls.

    On the way it comes by the button that records an outcome for the last person, which is how a
    script finds it where nothing else is offered.
    """
    rows, buttons, count, found = set(), 0, 0, None
    wanted = {f"Person Number {i}" for i in range(people)}
    last = f"Person Number {people - 1}"
    before = screen.processor_seconds()
    start = time.monotonic()
    for _, role, name in elements(screen.root):
        count += 1
        if name in wanted:
            rows.add(name)
        if role == "push button":
            buttons += 1
            if not found and last in rows and name in ("Record outcome", "Correct"):
                found = time.monotonic() - start
        if time.monotonic() - start > LONGEST:
            break
    seconds = time.monotonic() - start
    program = screen.processor_seconds() - before
    # A name and an outcome each, a source for every other one, and two below the people.
    expected = people + (2 * people + (people + 1) // 2 + 2)
    print(f"elements\t{count}")
    print(f"walk per 1,000 elements\t{1000 * seconds / count * 1000:.3f}")
    print(f"program per 1,000 elements\t{1000 * program / count * 1000:.3f}")
    print(f"exposed\t{min(1.0, (len(rows) + buttons) / expected):.4f}")
    if found:
        print(f"find by walking\t{1000 * found:.3f}")


def find_by_collection(screen, people):
    page = screen.root.get_child_at_index(0)
    wanted = f"vemra.goal.person.p{people - 1}.outcome.start"
    times = []
    for _ in range(20):
        rule = Atspi.MatchRule.new(
            Atspi.StateSet.new([]), Atspi.CollectionMatchType.ALL,
            {"id": wanted}, Atspi.CollectionMatchType.ALL,
            [], Atspi.CollectionMatchType.ALL, [], Atspi.CollectionMatchType.ALL, False)
        start = time.monotonic()
        found = page.get_matches(rule, Atspi.CollectionSortOrder.CANONICAL, 0, True)
        times.append(time.monotonic() - start)
        if not found:
            raise SystemExit(f"no {wanted}")
    print(f"find by collection\t{1000 * sorted(times)[len(times) // 2]:.4f}")


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


main()
