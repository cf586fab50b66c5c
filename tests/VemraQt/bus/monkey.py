"""Uses a window while random steps run on it: monkey.py PROGRAM [STEPS [SEED]].

Walks, looks identifiers up, presses, writes and takes the focus; most of it with objects that were
taken hold of some time ago and may be gone by now. Of an object that it holds, and of nothing else,
an error is an answer. The program has to live, stay quiet and agree with its screen without a
window to the end; and enough of all this has to reach it.
"""

import collections
import random
import subprocess
import sys
import threading

from accessible import application, complaints, find, wait_for
from gi.repository import Atspi, GLib

LEAST_CLIENT_EVENTS = 25  # of 84 to 153 in 4,000 steps, 55 in the 1,000 with sanitizers


class Client:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.root = wait_for(lambda: application("monkey_on_the_bus"), "the program on the bus")
        self.page = self.root.get_child_at_index(0)
        self.held = []
        self.calls = self.gone = 0
        self.done = collections.Counter()

    def hold(self):
        """The object of a random row, and all objects in it."""
        self.page.get_child_count()  # the page itself answers always
        self.use(self.hold_below, self.page)
        del self.held[:-60]

    def hold_below(self, page):
        holder = self.random.choice(self.holders(page))
        count = holder.get_child_count()
        row = holder.get_child_at_index(self.random.randrange(max(1, count)))
        if row:
            self.held.append(row)
            self.hold_children(row)

    @staticmethod
    def holders(page):
        """The page, its sections, and the list of people when there is one."""
        holders = [page]
        for holder in holders:
            children = map(holder.get_child_at_index, range(min(4, holder.get_child_count())))
            holders += [child for child in children
                        if child and child.get_role_name() in ("landmark", "list")]
        return holders

    def hold_children(self, row):
        children = map(row.get_child_at_index, range(row.get_child_count()))
        self.held += [child for child in children if child]

    def use(self, how, node):
        """Calls that for an object, which may have been removed meanwhile."""
        try:
            how(node)
        except GLib.Error:
            self.gone += 1

    def look_up(self):
        prefix = f"vemra.goal.person.p{self.random.randrange(40)}"
        end = self.random.choice([".show-source", ".outcome.start", ".outcome.correct",
                                  ".outcome.save", ".outcome.picker", ".outcome.note"])
        self.find_and(self.random.choice([self.act, self.choose, self.write, self.read]),
                      prefix + end)

    def edit(self):
        """Opens the editor of a random person and fills it in."""
        prefix = f"vemra.goal.person.p{self.random.randrange(40)}.outcome"
        for end, how in ((".start", self.act), (".correct", self.act), (".picker", self.choose),
                         (".note", self.write)):
            self.find_and(how, prefix + end)

    def find_and(self, how, identifier):
        found = find(self.page, identifier)
        if found:
            self.held.append(found)
            self.use(how, found)

    def read(self, node):
        node.clear_cache()
        node.get_name(), node.get_role_name(), node.get_accessible_id()
        node.get_state_set(), node.get_index_in_parent()
        parent = node.get_parent()
        if parent:
            parent.get_name()

    def act(self, node):
        # A menu belongs to the user who opened it with the mouse; choices are pressed instead.
        if node.get_n_actions() > 0 and node.get_role_name() != "combo box":
            self.done["acts"] += node.do_action(0)

    def choose(self, node):
        if node.get_role_name() == "combo box":
            choice = node.get_child_at_index(self.random.randrange(8))
            if choice:
                self.done["choices"] += choice.do_action(0)

    def write(self, node):
        if node.get_role_name() == "text":
            self.done["writes"] += node.set_text_contents(f"note {self.calls}")

    def step(self):
        self.calls += 1
        one = self.random.random()
        if not self.held or one < 0.1:
            return self.hold()
        if one < 0.2:
            return self.edit()
        if one < 0.5:
            return self.look_up()
        how = self.random.choices([self.read, self.act, self.choose, self.write,
                                   lambda node: node.grab_focus()], [4, 4, 2, 2, 1])[0]
        self.use(how, self.random.choice(self.held))

    def was_busy(self):
        """Whether all kinds of requests were made and most of them succeeded."""
        return (self.gone < self.calls / 2
                and all(self.done[kind] > 0 for kind in ("acts", "choices", "writes")))


class Output:
    """The program's output; read continuously, so that the program never waits for us."""

    def __init__(self, process):
        self.lines = []
        self.spoke = threading.Event()  # it has come to its end, and takes its window down
        self.threads = [threading.Thread(target=self.read, args=[stream])
                        for stream in (process.stdout, process.stderr)]
        for thread in self.threads:
            thread.start()

    def read(self, stream):
        for line in filter(complaints, stream):
            self.lines.append(line)
            self.spoke.set()
        self.spoke.set()

    def whole(self):
        for thread in self.threads:
            thread.join()
        return "".join(self.lines)


def main(program, arguments):
    process = subprocess.Popen([program, *arguments], stdin=subprocess.PIPE,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    assert process.stdout.readline() == "ready\n"
    client = Client(int(arguments[1]) if len(arguments) > 1 else 1)
    client.hold()
    output = Output(process)
    process.stdin.write("go\n")
    process.stdin.flush()
    try:
        while not output.spoke.is_set():
            client.step()
    except GLib.Error as error:
        if not output.spoke.wait(5):  # the page itself does not answer
            process.kill()
            print(f"request {client.calls} failed: {error}")
            return 1
    text = output.whole()
    process.wait()
    done = ", ".join(f"{count} {kind}" for kind, count in sorted(client.done.items()))
    print(f"{client.calls} requests, {client.gone} of them to what was gone; {done}; "
          f"the program: {text}")
    if process.returncode != 0 or not text.startswith("agreed ") or text.count("\n") != 1:
        return 1
    return 0 if int(text.split()[1]) >= LEAST_CLIENT_EVENTS and client.was_busy() else 1


Atspi.init()
sys.exit(main(sys.argv[1], sys.argv[2:]))
