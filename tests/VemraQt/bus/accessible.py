"""Reads a window on the accessibility bus."""

import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
warnings.simplefilter("ignore", DeprecationWarning)
from gi.repository import Atspi, GLib  # noqa: E402


def application(name):
    """The program of that name when it shows a window; None before."""
    desktop = Atspi.get_desktop(0)
    desktop.clear_cache()
    for i in range(desktop.get_child_count()):
        child = desktop.get_child_at_index(i)
        if child and child.get_name() == name:
            return child if child.get_child_count() else None
    return None


def find(root, identifier):
    """The first element below with that identifier, without a walk; None when there is none."""
    rule = Atspi.MatchRule.new(
        Atspi.StateSet.new([]), Atspi.CollectionMatchType.ALL,
        {"id": identifier}, Atspi.CollectionMatchType.ALL,
        [], Atspi.CollectionMatchType.ALL,
        [], Atspi.CollectionMatchType.ALL, False)
    found = root.get_matches(rule, Atspi.CollectionSortOrder.CANONICAL, 0, True)
    return found[0] if found else None


def wait_for(ask, what, seconds=5):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        answer = ask()
        if answer:
            return answer
        time.sleep(0.01)
    raise AssertionError(f"waited in vain for {what}")


def walk(node):
    """Every element below, in tree order."""
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        yield child
        yield from walk(child)


def role_of(node):
    """The name of its role; later bindings than Debian 12's call a push button `button`."""
    name = node.get_role_name()
    return "push button" if name == "button" else name


def text_of(node):
    """The node's whole text. In later bindings its method `get_text` takes no range."""
    return Atspi.Text.get_text(node, 0, -1)


def actions(node):
    return [node.get_action_name(i) for i in range(node.get_n_actions())]


def act(node, name):
    assert node.do_action(actions(node).index(name)), f"{node.get_name()} does not {name}"


def has(node, state):
    return node.get_state_set().contains(state)


def equal(got, wanted):
    if got == wanted:
        return
    if isinstance(got, list) and isinstance(wanted, list) and len(wanted) > 12:
        place = next((i for i, (a, b) in enumerate(zip(got, wanted)) if a != b),
                     min(len(got), len(wanted)))
        raise AssertionError(f"{len(got)} entries, wanted {len(wanted)}; from {place} on: "
                             f"{got[place:place + 3]!r}, wanted {wanted[place:place + 3]!r}")
    raise AssertionError(f"got {got!r}, wanted {wanted!r}")


class Ear:
    """Listens to some kinds of events for a while."""

    def __init__(self, *kinds):
        self.kinds = kinds
        self.events = []
        self.listener = Atspi.EventListener.new(self.hear)

    def hear(self, event):
        what = event.type.rsplit(":", 1)[1]
        self.events.append((what, event.detail1, event.any_data, event.source))

    def __enter__(self):
        for kind in self.kinds:
            assert self.listener.register(kind)
        self.heard(0.5)  # until the program knows that somebody listens
        return self

    def __exit__(self, *_):
        for kind in self.kinds:
            self.listener.deregister(kind)

    def heard(self, seconds=0.2):
        """(what, detail, any data, source) of each event since the last time."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            while GLib.MainContext.default().iteration(False):
                pass
            time.sleep(0.01)
        events, self.events = self.events, []
        return events


def key(symbol):
    """Presses and releases a key of the keyboard."""
    Atspi.generate_keyboard_event(symbol, None, Atspi.KeySynthType.SYM)
    time.sleep(0.15)


TAB, BACKTAB, ENTER, DOWN, UP = 0xFF09, 0xFE20, 0xFF0D, 0xFF54, 0xFF52


def go_to(symbol, get, identifier, presses):
    """Moves the focus by exactly that many presses of a key; it must then be on the element, and not earlier."""
    for _ in range(presses):
        assert not has(get(identifier), Atspi.StateType.FOCUSED), f"{identifier} has it too soon"
        key(symbol)
    wait_for(lambda: has(get(identifier), Atspi.StateType.FOCUSED), f"the focus on {identifier}")


def type_note(get, identifier, text):
    """Moves to the note with Tab and types; Enter does nothing there."""
    go_to(TAB, get, identifier, 1)
    for letter in text:
        key(ord(letter))
    key(ENTER)
    equal(text_of(get(identifier)), text)


def complaints(written):
    """What a program wrote to its standard error, without what Qt 6.8 and later write about a
    client that requests a removed object, a selected child beyond the last, or a method that Qt
    does not have."""
    about_clients = ("qt.accessibility.atspi: Could not find accessible on path: ",
                     "qt.accessibility.atspi: AtSpiAdaptor::applicationInterface does not implement ",
                     "qt.accessibility.core: Selection index ")
    return "".join(line for line in written.splitlines(keepends=True)
                   if line.strip() and not line.startswith(about_clients))


def run_checks(checks, window, still_runs):
    """The number of failed checks; each starts with the window as the previous one left it."""
    failures = 0
    for one in checks:
        try:
            one(window)
            print("ok    ", one.__name__.replace("_", " "))
        except Exception as error:  # whatever a client library throws is a failure of the check
            failures += 1
            print("FAILED", one.__name__.replace("_", " "), "\n      ", repr(error))
            if not still_runs():
                break
    return failures
