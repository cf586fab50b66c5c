"""Uses the monkey's window while the monkey does: monkey.py PROGRAM [STEPS [SEED]].

Walks, looks identifiers up, presses, writes and takes the focus; most of it with objects that were
taken hold of some time ago and may be dead by now. The program has to live, stay quiet and agree
with its screen without a window to the end.
"""

import random
import subprocess
import sys
import threading

from accessible import application, find, wait_for
from gi.repository import Atspi, GLib

LEAST_CLIENT_EVENTS = 10


class Client:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.root = wait_for(lambda: application("monkey_on_the_bus"), "the program on the bus")
        self.page = self.root.get_child_at_index(0)
        self.held = []
        self.calls = self.dead = 0

    def hold(self):
        """Some row's object, and all that is in it."""
        row = self.page.get_child_at_index(self.random.randrange(max(1, self.page.get_child_count())))
        if not row:
            return
        self.held.append(row)
        self.held += [c for c in map(row.get_child_at_index, range(row.get_child_count())) if c]
        del self.held[:-60]

    def look_up(self):
        ref = f"p{self.random.randrange(40)}"
        end = self.random.choice([".show-source", ".outcome.start", ".outcome.correct",
                                  ".outcome.save", ".outcome.picker", ".outcome.note"])
        found = find(self.page, f"vemra.goal.person.{ref}{end}")
        if found:
            self.held.append(found)
            self.random.choice([self.act, self.choose, self.write, self.read])(found)

    def read(self, node):
        node.clear_cache()
        node.get_name(), node.get_role_name(), node.get_accessible_id()
        node.get_state_set(), node.get_index_in_parent()
        parent = node.get_parent()
        if parent:
            parent.get_name()

    def act(self, node):
        # A menu belongs to whoever opened it with the mouse; choices are pressed instead.
        if node.get_n_actions() > 0 and node.get_role_name() != "combo box":
            node.do_action(0)

    def choose(self, node):
        if node.get_role_name() == "combo box":
            choice = node.get_child_at_index(self.random.randrange(8))
            if choice:
                choice.do_action(0)

    def write(self, node):
        if node.get_role_name() == "text":
            node.set_text_contents(f"note {self.calls}")

    def step(self):
        self.calls += 1
        one = self.random.random()
        if not self.held or one < 0.1:
            return self.hold()
        if one < 0.5:
            return self.look_up()
        node = self.random.choice(self.held)
        use = self.random.choices([self.read, self.act, self.choose, self.write,
                                   lambda n: n.grab_focus()], [4, 4, 2, 2, 1])[0]
        use(node)


def main(program, arguments):
    process = subprocess.Popen([program, *arguments], stdin=subprocess.PIPE,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    assert process.stdout.readline() == "ready\n"
    client = Client(int(arguments[1]) if len(arguments) > 1 else 1)
    client.hold()
    said = []
    # Read meanwhile, so that the program never waits for us.
    readers = [threading.Thread(target=lambda stream=stream: said.append(stream.read()))
               for stream in (process.stdout, process.stderr)]
    for reader in readers:
        reader.start()
    process.stdin.write("go\n")
    process.stdin.flush()
    while process.poll() is None:
        try:
            client.step()
        except (GLib.Error, AttributeError, TypeError):
            client.dead += 1  # what it held is gone
    for reader in readers:
        reader.join()
    text = "".join(said)
    print(f"{client.calls} requests, {client.dead} of them to what was gone; the program: {text}")
    if process.returncode != 0 or not text.startswith("agreed ") or text.count("\n") != 1:
        return 1
    return 0 if int(text.split()[1]) >= LEAST_CLIENT_EVENTS else 1


Atspi.init()
sys.exit(main(sys.argv[1], sys.argv[2:]))
