"""Uses the window on a Wayland compositor, with the pointer and the keyboard: client.py PROGRAM.

The compositor covers the whole X display of this process (see `run`), so a place in the window is the same
place on that display.
"""

import os
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "bus"))

from accessible import (  # noqa: E402
    Atspi, complaints, equal, has, key, run_checks, text_of, wait_for)
from client import Window  # noqa: E402
from display import Display  # noqa: E402

PREFIX = "vemra.goal.person.p0.outcome"
ESCAPE = 0xFF1B


def box_of(node):
    extents = node.get_extents(Atspi.CoordType.WINDOW)
    return extents.x, extents.y, extents.width, extents.height


def click(node):
    x, y, width, height = box_of(node)
    Atspi.generate_mouse_event(x + width // 2, y + height // 2, "b1c")


def lead_pointer_to_corners():
    """The compositor may not know where the display's pointer is at first, and then it only follows the pointer's
    steps from another place. It keeps its own pointer inside the display, so from a corner on both agree."""
    for corner in (1279, 1023), (0, 0):
        Atspi.generate_mouse_event(*corner, "abs")


def settled_picture(display):
    """The display's picture once it does not change any more."""
    before = display.picture()
    for _ in range(40):
        time.sleep(0.25)
        now = display.picture()
        if now == before:
            return now
        before = now
    raise AssertionError("the picture keeps changing")


def opened_menu(picker, display):
    """Clicks the picker; the part of the picture, (left, top, right, bottom), that its open menu covers."""
    without = settled_picture(display)
    click(picker)
    _, _, _, height = box_of(picker)

    def covers():
        changed = display.picture().changed(without)
        return changed and changed[3] - changed[1] > 6 * height  # eight choices

    wait_for(covers, "the open menu")
    return settled_picture(display).changed(without)


def the_page_is_drawn(window, display):
    start = window.get(PREFIX + ".start")
    picture = settled_picture(display)
    colours = picture.colours(*box_of(start))
    assert len(colours) > 8, f"the button shows {len(colours)} colours, so it has no frame or no title"
    lead_pointer_to_corners()


def a_click_presses(window, display):
    click(window.get(PREFIX + ".start"))
    wait_for(lambda: window.find(PREFIX + ".picker"), "the editor")


def a_menu_opens_at_its_picker(window, display):
    picker = window.get(PREFIX + ".picker")
    x, y, width, height = box_of(picker)
    without = settled_picture(display)
    left, top, right, bottom = opened_menu(picker, display)
    menu = f"the menu covers {(left, top, right, bottom)}, its picker {(x, y, x + width, y + height)}"
    assert abs(left - x) <= 12 and right - left >= width - 24, menu
    assert top <= y + height + 12 and bottom >= y - 12, menu
    key(ESCAPE)
    # The pointer stays, and the focus draws a ring around the picker.
    around = (x - 16, y - 16, width + 32, height + 32)
    equal(settled_picture(display).changed(without, apart_from=around), None)


def a_note_is_typed(window, display):
    note = window.get(PREFIX + ".note")
    click(note)
    wait_for(lambda: has(window.get(PREFIX + ".note"), Atspi.StateType.FOCUSED), "the focus on the note")
    for letter in "hello":
        key(ord(letter))
    wait_for(lambda: text_of(note) == "hello", "the typed note")


def a_click_saves(window, display):
    click(window.get(PREFIX + ".save"))
    wait_for(lambda: window.find(PREFIX + ".correct"), "the recorded outcome")
    equal(window.tell("scroll 0"), ["record p0 wasUseful hello nil"])


CHECKS = [
    the_page_is_drawn,
    a_click_presses,
    a_menu_opens_at_its_picker,
    a_note_is_typed,
    a_click_saves,
]


def check(program):
    display = Display()
    environment = dict(os.environ, WAYLAND_DISPLAY=os.environ["VEMRA_WAYLAND"], QT_QPA_PLATFORM="wayland")
    environment.pop("DISPLAY")
    window = Window(program, 20, environment)
    checks = [bound(one, display) for one in CHECKS]
    failures = run_checks(checks, window, lambda: window.process.poll() is None)
    status, stderr = window.quit()
    if status != 0 or complaints(stderr):
        failures += 1
        print(f"FAILED the program ended with {status} and wrote: {stderr}")
    return failures


def bound(one, display):
    def run(window):
        one(window, display)

    run.__name__ = one.__name__
    return run


Atspi.init()
sys.exit(1 if check(sys.argv[1]) else 0)
