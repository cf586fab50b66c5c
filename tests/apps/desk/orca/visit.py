"""A person visits the program with the Orca screen reader; compares what Orca says with a transcript.

    visit.py PROGRAM FOLDER [--write]

FOLDER holds accessible.py. With --write the script writes the transcript instead; Orca's own words
differ from one version to the next, so there is a transcript for each (transcript-43.txt). Orca has a voice
that writes down its words and makes no sound (recorded_voice.py). In the transcript, a line after
">" is what the person or another program does, and the lines below are what Orca says, one for each
utterance; "(cut off)" means that Orca interrupted itself or a key did.
"""

import contextlib
import difflib
import json
import os
import re
import shutil
import sqlite3
import subprocess
import sys
import tempfile

sys.path.insert(0, sys.argv[2])
from accessible import (  # noqa: E402
    BACKTAB, DOWN, ENTER, TAB, UP, Atspi, application, key, wait_for)
from screen_reader import HERE, Orca  # noqa: E402

SAY_ALL = 0xFFAB  # the plus of the number pad
WHERE_AM_I = 0xFF8D  # its Enter
CONTROL, EQUAL, MINUS = 37, 21, 20  # codes of keys on the keyboard
ESCAPE, RIGHT, F6, F10 = 0xFF1B, 0xFF53, 0xFFC3, 0xFFC7
WINDOW = "Find a design lead – Vemra Desk"  # its title
SKIPPED = 77  # the exit code of a test that was not run


def document():
    people = [
        {"personRef": f"p{i}", "displayName": name, "why": {"kind": "nameMatch"},
         **({"evidenceIDs": [f"ev{i}"]} if i == 0 else {})}
        for i, name in enumerate(["Ada Berg", "Bo Carlsen", "Cem Demir"])
    ]
    return {
        "goal": {"id": "g1", "title": "Find a design lead", "targetPersonRef": "p2"},
        "people": people,
        "paths": [{"personRefs": ["p1", "p2"], "why": {"kind": "connection", "hopCount": 2}}],
        "group": [],
        "coverage": {"sources": ["Mail"], "evidenceCount": 12},
        "outcomes": [],
    }


class Visit:
    """The program with a store of its own, Orca, and the transcript."""

    def __init__(self, program, folder):
        self.program, self.folder = program, folder
        self.store = os.path.join(folder, "goals.sqlite")
        self.lines = []
        self.process = None
        self.run_import(document())
        self.orca = Orca(folder)
        self.orca.step("")

    def run_import(self, content):
        file = os.path.join(self.folder, "result.json")
        with open(file, "w", encoding="utf-8") as out:
            json.dump(content, out)
        subprocess.run([self.program, "import", "--store", self.store, file], check=True)

    def start(self):
        self.process = subprocess.Popen(
            [self.program, "--store", self.store], stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(lambda: application("vemra-desk"), "the program on the bus", 20)
        self.note("open the program")

    def note(self, what, until="", first="", with_cuts=True):
        """Ends a step: writes down what happens, and what Orca says about it, from the first text
        that begins with `first`. Before it, Orca may say more when the store takes its time."""
        begun = False
        self.lines.append(f"> {what}")
        spoken = self.orca.step(until)
        stops = [place for place, line in enumerate(spoken) if line[0] == "stop"]
        for place, line in enumerate(spoken):
            if line[0] == "stop":
                continue
            text = line[1].replace(self.folder, "FOLDER").replace("\n", " / ")
            text = "".join(character for character in text if character not in "\u2068\u2069")
            begun = begun or text.startswith(first)
            if not begun:
                continue
            if text == WINDOW:
                continue  # Orca 48 and 51 say it before a control now and then, by their timing
            cut = "(cut off) " if with_cuts and any(stop > place for stop in stops) else ""
            self.lines.append(f"    {cut}{text}")

    def press(self, symbol, what, until="", times=1, first=""):
        """Presses a key, and ends the step."""
        for _ in range(times):
            key(symbol)
            self.note(what, until, first)

    def twice(self, symbol, what, until=""):
        """Presses a key twice within half a second, and ends the step."""
        for _ in range(2):
            Atspi.generate_keyboard_event(symbol, None, Atspi.KeySynthType.SYM)
        # Whether the second key comes before the first text has ended depends on the machine's load.
        self.note(what, until, with_cuts=False)

    def with_control(self, code, what, until):
        Atspi.generate_keyboard_event(CONTROL, None, Atspi.KeySynthType.PRESS)
        Atspi.generate_keyboard_event(code, None, Atspi.KeySynthType.PRESSRELEASE)
        Atspi.generate_keyboard_event(CONTROL, None, Atspi.KeySynthType.RELEASE)
        self.note(what, until)

    def type(self, text):
        for letter in text:
            key(ord(letter))
        self.note(f"type {text!r}", None)

    def quit(self):
        if self.process:
            self.process.terminate()
            self.process.wait(20)
        self.orca.quit()


@contextlib.contextmanager
def locked(file):
    """Another program keeps the store to itself meanwhile."""
    other = sqlite3.connect(file, isolation_level=None)
    other.execute("BEGIN IMMEDIATE")
    try:
        yield
    finally:
        other.execute("ROLLBACK")
        other.close()


def story(visit):
    visit.start()
    visit.press(TAB, "Tab", times=3)
    visit.press(SAY_ALL, "say all")
    visit.twice(SAY_ALL, "say all, twice: all that is in view", "Based on")
    visit.press(ENTER, "Return: record an outcome", "combo box")
    visit.press(DOWN, "Down")
    visit.press(TAB, "Tab")
    visit.type("met")
    visit.press(TAB, "Tab")
    visit.press(ENTER, "Return: Save", "Ada Berg", first="Correct")
    visit.press(ENTER, "Return: correct it", "combo box")
    visit.press(UP, "Up")
    visit.press(TAB, "Tab", times=3)
    visit.press(ENTER, "Return: Cancel", "Ada Berg")
    visit.press(ENTER, "Return: correct it", "combo box")
    visit.press(UP, "Up")
    visit.press(TAB, "Tab", times=2)
    visit.press(ENTER, "Return: Save", "corrected", first="Correct")
    visit.press(TAB, "Tab", times=2)
    visit.press(ENTER, "Return: record an outcome for the next person", "combo box")
    visit.press(TAB, "Tab", times=2)
    with locked(visit.store):
        visit.press(ENTER, "Return: Save, while another program keeps the store", "is in use")
        visit.press(TAB, "Tab")
        visit.press(ENTER, "Return: try again", "is in use")
    visit.note("the other program lets go of the store", "Stored")
    changed = document()
    changed["people"].append({"personRef": "p9", "displayName": "Dana Eide",
                              "why": {"kind": "nameMatch"}})
    visit.run_import(changed)
    visit.note("another program imports one more person")
    visit.run_import({**document(), "goal": {"id": "g2", "title": "Sail"}})
    visit.note("another program imports another goal")
    visit.press(BACKTAB, "Shift+Tab")
    visit.press(ENTER, "Return: open the person")
    visit.press(ESCAPE, "Escape: close the details", None)
    changed["outcomes"] = [{"id": "o9", "subjectKind": "person", "subjectRef": "p2",
                            "value": "helped"}]
    visit.run_import(changed)
    visit.note("another program records an outcome", "Helped")
    visit.press(F6, "F6: the goals", "Find a design lead")
    visit.press(DOWN, "Down", "Sail")
    visit.press(F10, "F10: the menus", "File")
    visit.press(DOWN, "Down")
    visit.press(RIGHT, "Right: the next menu", times=2)
    visit.press(ESCAPE, "Escape")
    visit.press(ESCAPE, "Escape: back to the goals")
    visit.twice(WHERE_AM_I, "where am I, twice", "Sail")
    visit.with_control(EQUAL, "Ctrl+=: larger text", "110")
    visit.with_control(MINUS, "Ctrl+-: smaller text", "100")


def headings(visit):
    """From heading to heading; only later versions of Orca do so outside web pages."""
    visit.press(UP, "Up: the first goal", "Find a design lead")
    visit.press(F6, "F6: the page", "button")
    for symbol, what, until in (
            (ord("h"), "H: the next heading", "heading"), (ord("h"), "H", "heading"),
            (ord("h"), "H", "heading"), (ord("h"), "H", "heading"),
            (ord("H"), "Shift+H: the previous heading", "heading"), (ord("H"), "Shift+H", "heading"),
            (ord("2"), "2: the next heading of the second level", "heading 2"),
            (ord("i"), "I: the next list item", "Ada Berg"), (ord("i"), "I", "Bo Carlsen")):
        visit.orca.find_in_windows()
        visit.press(symbol, what, until)


def heard_in_a_visit(program, finds_headings):
    """The lines of the transcript of one visit."""
    with tempfile.TemporaryDirectory() as folder:
        visit = Visit(os.path.abspath(program), folder)
        try:
            story(visit)
            if finds_headings:
                headings(visit)
        finally:
            visit.quit()
            if "--print" in sys.argv:
                print("\n".join(visit.lines))
        return visit.lines


def main():
    if not shutil.which("orca"):
        print("skipped: Orca is not installed (docs/testing.md)")
        return SKIPPED
    words = subprocess.run(["orca", "--version"], capture_output=True, text=True).stdout
    found = re.search(r"\d+", words)
    if not found:
        print("skipped: Orca names no version (orca --version)")
        return SKIPPED
    version = found.group()
    transcript = os.path.join(HERE, f"transcript-{version}.txt")
    Atspi.init()
    finds_headings = int(version) >= 51
    if not finds_headings:
        print(f"left out: Orca {version} has keys for headings in web pages only")
    heard = heard_in_a_visit(sys.argv[1], finds_headings)
    if "--write" in sys.argv:
        with open(transcript, "w", encoding="utf-8") as out:
            out.write("\n".join(heard) + "\n")
        return 0
    if not os.path.exists(transcript):
        print("\n".join(heard))
        print(f"skipped: there is no transcript of Orca {version}")
        return SKIPPED
    with open(transcript, encoding="utf-8") as expected:
        difference = list(difflib.unified_diff(
            expected.read().splitlines(), heard, "the transcript", "heard", "", "", 3, ""))
    print("\n".join(difference))
    return 1 if difference else 0


sys.exit(main())
