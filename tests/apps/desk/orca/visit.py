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
import time

sys.path.insert(0, sys.argv[2])
from accessible import (  # noqa: E402
    BACKTAB, DOWN, ENTER, TAB, UP, Atspi, application, key, wait_for)

HERE = os.path.dirname(os.path.abspath(__file__))
SAY_ALL = 0xFFAB  # the plus of the number pad
ESCAPE, RIGHT, F6, F10 = 0xFF1B, 0xFF53, 0xFFC3, 0xFFC7
WINDOW = "Find a design lead – Vemra Desk"  # its title
QUIET = 1.0  # seconds without a word after which a step has ended
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


class Orca:
    """The screen reader, with a voice that writes down its words (recorded_voice.py)."""

    def __init__(self, folder):
        preferences = os.path.join(folder, "orca")
        os.mkdir(preferences)
        shutil.copy(os.path.join(HERE, "orca-customizations.py"), preferences)
        shutil.copytree(os.path.join(HERE, "glib-2.0"), os.path.join(folder, "glib-2.0"))
        self.words = os.path.join(folder, "words")
        open(self.words, "w", encoding="utf-8").close()
        environment = dict(
            os.environ, VEMRA_RECORDED_VOICE=self.words, PYTHONPATH=HERE, PYTHONDONTWRITEBYTECODE="1",
            LC_ALL="C.UTF-8", GSETTINGS_BACKEND="keyfile", XDG_CONFIG_HOME=folder,
            XDG_DATA_HOME=folder, XDG_CACHE_HOME=folder)
        self.process = subprocess.Popen(
            ["orca", "--user-prefs", preferences], env=environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.read = 0

    def lines(self):
        """The lines of the voice since the last step."""
        with open(self.words, encoding="utf-8") as words:
            return [json.loads(line) for line in words][self.read:]

    def is_heard(self, text=""):
        return any(line[0] == "say" and text in line[1] for line in self.lines())

    def step(self, until):
        """What Orca says in a step that has just begun: until it has said the text and is quiet;
        with None, whatever it says within the time in which it is otherwise quiet."""
        if until is not None:
            wait_for(lambda: self.is_heard(until), f"Orca to say {until!r}, after {self.lines()}", 30)
        count, since = -1, time.monotonic()
        while time.monotonic() < since + QUIET:
            now = len(self.lines())
            if now != count:
                count, since = now, time.monotonic()
            time.sleep(0.05)
        lines = self.lines()
        self.read += len(lines)
        return lines

    def quit(self):
        self.process.terminate()
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()


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
    for _ in range(2):  # within half a second
        Atspi.generate_keyboard_event(SAY_ALL, None, Atspi.KeySynthType.SYM)
    # Whether the second key comes before the first text has ended depends on the machine's load.
    visit.note("say all, twice: all that is in view", "Based on", with_cuts=False)
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


def heard_in_a_visit(program):
    """The lines of the transcript of one visit."""
    with tempfile.TemporaryDirectory() as folder:
        visit = Visit(os.path.abspath(program), folder)
        try:
            story(visit)
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
    heard = heard_in_a_visit(sys.argv[1])
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
