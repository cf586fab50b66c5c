"""The Orca screen reader, for a script that visits a program with it (visit.py)."""

import json
import os
import shutil
import subprocess
import time

from accessible import wait_for
from gi.repository import Gio, GLib

HERE = os.path.dirname(os.path.abspath(__file__))
QUIET = 1.0  # seconds without a word after which a step has ended


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


    def find_in_windows(self):
        """From now on H, I and the like go to headings and list items in windows, until the next
        jump: then Orca 51 ends this mode. The person presses Insert+Z twice for it; a synthetic Insert
        is no modifier for Orca, so this asks Orca over the bus."""
        bus = Gio.bus_get_sync(Gio.BusType.SESSION, None)
        for _ in range(2):  # off, documents, windows
            bus.call_sync("org.gnome.Orca1.Service", "/org/gnome/Orca1/Service/StructuralNavigator",
                          "org.gnome.Orca1.StructuralNavigator", "CycleMode",
                          GLib.Variant("(b)", (False,)), None, Gio.DBusCallFlags.NONE, 10000, None)
