"""Uses vemra-desk as a client in another process: client.py PROGRAM BUS_FOLDER.

Imports a goal with 200 people, opens the window on it, records and corrects outcomes over the
accessibility bus, and looks into the store for what came of it.
"""

import json
import os
import sqlite3
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, sys.argv[2])
from accessible import (  # noqa: E402
    BACKTAB, DOWN, ENTER, TAB, UP, Atspi, Ear, act, application, complaints, equal, find, go_to,
    has, key, role_of, run_checks, text_of, type_note, wait_for, walk)

PEOPLE = 200
SHOWING, FOCUSED = Atspi.StateType.SHOWING, Atspi.StateType.FOCUSED


def reference(index):
    # References may be any text: blanks, dots, umlauts and other scripts stay unchanged.
    return ["p {}", "p.{}.outcome", "pä{}", "人{}"][index % 4].format(index)


def document():
    people = [
        {
            "personRef": reference(i),
            "displayName": f"Person <b>{i}</b> & more",
            "why": {"kind": "nameMatch"},
            **({"evidenceIDs": [f"ev{i}"]} if i % 3 == 0 else {}),
        }
        for i in range(PEOPLE)
    ]
    return {
        "goal": {"id": "g1", "title": "Find a design lead", "targetPersonRef": reference(9)},
        "people": people,
        "paths": [{"personRefs": [reference(1), reference(9)],
                   "why": {"kind": "connection", "hopCount": 2}}],
        "group": [],
        "coverage": {"sources": ["Mail"], "evidenceCount": 12},
        "outcomes": [{"id": "o0", "subjectKind": "person", "subjectRef": reference(4),
                      "value": "helped", "note": "long ago"}],
    }


def expected_identifiers():
    identifiers = []
    for i in range(PEOPLE):
        prefix = "vemra.goal.person." + reference(i)
        if i % 3 == 0:
            identifiers.append(prefix + ".show-source")
        identifiers.append(prefix + (".outcome.correct" if i == 4 else ".outcome.start"))
    return identifiers + ["vemra.goal.path.see-in-starfold", "vemra.goal.path.outcome.start"]


class Desk:
    """The program with a store of its own."""

    def __init__(self, program, folder):
        self.program = program
        self.store = os.path.join(folder, "goals.sqlite")
        self.folder = folder
        self.import_goals([document()])
        self.start()

    def start(self):
        self.process = subprocess.Popen(
            [self.program, "--store", self.store, "--goal", "g1"],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.root = wait_for(lambda: application("vemra-desk"), "the program on the bus", 20)
        wait_for(self.is_active, "the window with the focus", 20)

    def import_goals(self, documents):
        """Runs a command in another process while a window is open."""
        files = []
        for number, content in enumerate(documents):
            files.append(os.path.join(self.folder, f"result{number}.json"))
            with open(files[-1], "w", encoding="utf-8") as out:
                json.dump(content, out, ensure_ascii=False)
        subprocess.run([self.program, "import", "--store", self.store, *files], check=True)

    def is_active(self):
        frame = self.root.get_child_at_index(0)
        frame.clear_cache()
        return has(frame, Atspi.StateType.ACTIVE)

    def find(self, identifier):
        return find(self.root, identifier)

    def get(self, identifier):
        found = wait_for(lambda: self.find(identifier), identifier)
        found.clear_cache()
        return found

    def outcomes(self):
        """The store's content for the goal, read by another process."""
        told = subprocess.run([self.program, "outcomes", "--store", self.store, "--goal", "g1"],
                              check=True, capture_output=True, text=True).stdout
        return json.loads(told)

    def newest(self, count):
        """The outcomes when there are so many; they are stored off the main thread, so this waits."""
        wait_for(lambda: len(self.outcomes()) >= count, f"{count} outcomes in the store")
        outcomes = self.outcomes()
        equal(len(outcomes), count)
        return outcomes[-1]

    def quit(self):
        self.process.terminate()
        return self.process.communicate(timeout=20)[1]


def every_identifier_is_there_and_no_other(desk):
    wait_for(lambda: desk.find("vemra.goal.path.outcome.start"), "the goal on the screen", 20)
    found = [node.get_accessible_id() for node in walk(desk.root)]
    equal([i for i in found if i.startswith("vemra.goal.")], expected_identifiers())


def names_are_shown_as_they_are(desk):
    row = desk.get(f"vemra.goal.person.{reference(150)}.outcome.start").get_parent()
    equal(row.get_role_name(), "list item")
    equal(row.get_name(), "Person <b>150</b> & more")
    equal(row.get_child_at_index(0).get_name(), "Person <b>150</b> & more")


def record(desk, index, note, count):
    prefix = f"vemra.goal.person.{reference(index)}.outcome"
    act(desk.get(prefix + ".start"), "Press")
    picker = desk.get(prefix + ".picker")
    act(picker.get_child_at_index(5), "Press")
    assert desk.get(prefix + ".note").set_text_contents(note)
    act(desk.get(prefix + ".save"), "Press")
    stored = desk.newest(count)
    equal({k: stored[k] for k in ("subjectKind", "subjectRef", "value", "note")},
          {"subjectKind": "person", "subjectRef": reference(index), "value": "notAFit",
           "note": note.strip()})
    equal(stored.get("correctsOutcomeID"), None)
    return stored


def correct(desk, index, earlier, count):
    prefix = f"vemra.goal.person.{reference(index)}.outcome"
    act(desk.get(prefix + ".correct"), "Press")
    equal(text_of(desk.get(prefix + ".note")), earlier["note"])
    equal(text_of(desk.get(prefix + ".picker")), "Not a fit")
    act(desk.get(prefix + ".picker").get_child_at_index(3), "Press")
    act(desk.get(prefix + ".save"), "Press")
    stored = desk.newest(count)
    equal((stored["value"], stored["note"], stored["correctsOutcomeID"]),
          ("helped", earlier["note"], earlier["id"]))
    equal(desk.get(prefix + ".corrected-marker").get_name(), "\u00b7 corrected")


def a_recording_and_its_correction_reach_the_store(desk):
    correct(desk, 1, record(desk, 1, "  bei der Messe getroffen ", 4), 5)


def the_details_are_announced_once_and_their_goals_are_links(desk):
    """The first text of a row is the name of the person, which opens the details."""
    row = desk.get(f"vemra.goal.person.{reference(1)}.outcome.correct").get_parent()
    details = "Person: Person <b>1</b> & more"

    def notifications(ear):
        return [event for event in ear.heard() if event[3].get_role_name() == "notification"
                and event[3].get_name() == details and event[1] == 1]

    with Ear("object:state-changed:showing") as ear:
        act(row.get_child_at_index(0), "Press")
        hears(ear, lambda event: event[3].get_name() == details)
        link = wait_for(lambda: next((node for node in walk(desk.root)
                                      if node.get_role_name() == "link"), None), "a link")
        equal(link.get_name(), "Find a design lead")
        desk.import_goals([document()])
        time.sleep(1.5)
        equal(notifications(ear), [])
    close = next(node for node in walk(desk.root) if node.get_name() == "Close"
                 and role_of(node) == "push button")
    act(close, "Press")


def tab_reports_the_control_with_the_focus_and_nothing_else(desk):
    """Into the page, into a note with a text, out of it, and out of the page."""
    first = desk.get(f"vemra.goal.person.{reference(0)}.show-source").get_parent()
    prefix = f"vemra.goal.person.{reference(1)}.outcome"
    with Ear("object:state-changed:focused", "object:text-selection-changed",
             "object:text-caret-moved") as ear:
        def press(symbol):
            """What is reported of the key, in this order; without what loses the focus."""
            ear.heard(0.1)
            key(symbol)
            return [(what, about.get_name()) for what, number, _, about in ear.heard()
                    if what != "focused" or number == 1]

        assert first.get_child_at_index(0).grab_focus()
        equal(press(BACKTAB), [("focused", "Find a design lead")])
        equal(press(TAB), [("focused", "Person <b>0</b> & more")])
        act(desk.get(prefix + ".correct"), "Press")
        equal(press(TAB), [("focused", "Note (optional)")])
        equal(press(TAB), [("focused", "Save")])
        act(desk.get(prefix + ".cancel"), "Press")


def the_page_has_the_name_of_its_title(desk):
    page = desk.get(f"vemra.goal.person.{reference(0)}.show-source")
    while page.get_role_name() != "heading":
        page = page.get_parent()
        heading = page.get_child_at_index(0)
        if heading.get_role_name() == "heading" and heading.get_attributes()["level"] == "1":
            break
    equal((page.get_role_name(), page.get_name()), ("form", "Find a design lead"))
    for title in ("Find two", "Find a design lead"):
        with Ear("object:property-change:accessible-name") as ear:
            renamed = document()
            renamed["goal"]["title"] = title
            desk.import_goals([renamed])
            hears(ear, lambda event: event[3] == page)
        page.clear_cache()
        equal(page.get_name(), title)


def so_they_do_outside_the_viewport(desk):
    assert not has(desk.get(f"vemra.goal.person.{reference(170)}.outcome.start"), SHOWING)
    correct(desk, 170, record(desk, 170, "far away", 6), 7)


def the_keyboard_alone_records_and_corrects(desk):
    """From a new window, without setting the focus over the bus."""
    prefix = f"vemra.goal.person.{reference(0)}.outcome"
    focused = [node for node in walk(desk.root) if has(node, FOCUSED) and node.get_accessible_id()]
    equal([node.get_accessible_id() for node in focused], [])
    go_to(TAB, desk.get, prefix + ".start", 3)  # the name, the source, the outcome

    key(ENTER)
    wait_for(lambda: desk.find(prefix + ".picker"), "the editor")
    go_to(TAB, desk.get, prefix + ".picker", 0)
    key(DOWN)
    type_note(desk.get, prefix + ".note", "hello")
    equal(len(desk.outcomes()), 1)
    go_to(TAB, desk.get, prefix + ".save", 1)
    key(ENTER)
    first = desk.newest(2)
    equal((first["subjectRef"], first["value"], first["note"], first.get("correctsOutcomeID")),
          (reference(0), "notAFit", "hello", None))

    go_to(TAB, desk.get, prefix + ".correct", 0)
    key(TAB)  # away to the next person, and back
    go_to(BACKTAB, desk.get, prefix + ".correct", 1)
    key(ENTER)
    go_to(TAB, desk.get, prefix + ".picker", 0)
    key(UP)
    key(UP)
    go_to(TAB, desk.get, prefix + ".save", 2)
    key(ENTER)
    second = desk.newest(3)
    equal((second["subjectRef"], second["value"], second["note"], second["correctsOutcomeID"]),
          (reference(0), "helped", "hello", first["id"]))
    wait_for(lambda: desk.find(prefix + ".corrected-marker"), "the mark of a correction")


def the_store_is_whole(desk):
    with sqlite3.connect(f"file:{desk.store}?mode=ro", uri=True) as store:
        equal(store.execute("PRAGMA integrity_check").fetchone()[0], "ok")
        equal(store.execute("PRAGMA foreign_key_check").fetchall(), [])
    equal(desk.outcomes()[0]["id"], "o0")
    equal(len({outcome["id"] for outcome in desk.outcomes()}), 7)


def goals(numbers, title="Further goal {}"):
    documents = []
    for number in numbers:
        goal = {"id": f"further{number}", "title": title.format(number)}
        documents.append({"goal": goal, "people": [], "paths": [], "group": [], "outcomes": [],
                          "coverage": {"sources": [], "evidenceCount": 0}})
    return documents


def hears(ear, wanted):
    """The first wanted event; earlier events are dropped."""
    found = []

    def heard():
        found.extend(event for event in ear.heard() if wanted(event))
        return found

    return wait_for(heard, f"an event of {ear.kinds}", 10)[0]


def column_of_goals(desk):
    def is_column(node):
        first = node.get_child_at_index(1) if node and node.get_role_name() == "list" else None
        return first is not None and first.get_role_name() == "radio button"

    return wait_for(lambda: next((node for node in walk(desk.root) if is_column(node)), None),
                    "the list of goals")


def more_goals_are_announced_and_so_are_new_names_of_goals_out_of_view(desk):
    column = column_of_goals(desk)
    equal(column.get_child_count(), 2)  # the heading and the goal
    with Ear("object:children-changed") as ear:
        desk.import_goals(goals(range(2)))
        first = hears(ear, lambda event: event[0] == "add" and event[1] == 2)
        equal((first[2].get_name(), first[3] == column), ("Further goal 0", True))
        desk.import_goals(goals(range(2, 200)))
        hears(ear, lambda event: event[0] == "add" and event[1] == -1 and event[3] == column)
    column.clear_cache()
    equal(column.get_child_count(), 202)
    far = column.get_child_at_index(151)
    assert not has(far, SHOWING)
    equal(far.get_name(), "Further goal 149")
    with Ear("object:property-change:accessible-name") as ear:
        desk.import_goals(goals([149], "Renamed goal {}"))
        hears(ear, lambda event: event[3] == far)
    far.clear_cache()
    equal(far.get_name(), "Renamed goal 149")
    with Ear("object:state-changed:checked") as ear:
        act(far, "Press")
        equal(hears(ear, lambda event: event[3] == far)[1], 1)


def open_goal(desk, place):
    chosen = column_of_goals(desk).get_child_at_index(place)
    act(chosen, "Press")
    title = chosen.get_name()
    wait_for(lambda: any(node.get_name() == title and node.get_role_name() != "radio button"
                         for node in walk(desk.root)), title)


def a_goal_is_chosen_by_selecting_it(desk):
    column = column_of_goals(desk)
    equal(column.get_role_name(), "list")
    selection = column.get_selection_iface()
    for place in (2, 150, 1):  # with a widget, and without
        title = column.get_child_at_index(place).get_name()
        assert selection.select_child(place), place
        wait_for(lambda: selection.get_selected_child(0).get_name() == title, f"{title} selected")
        equal(selection.get_n_selected_children(), 1)
        assert selection.is_child_selected(place)
        wait_for(lambda: desk.root.get_child_at_index(0).clear_cache()
                 or desk.root.get_child_at_index(0).get_name().startswith(title), title)
    assert not selection.select_child(0), "the heading"
    assert not selection.deselect_child(1)


def a_goal_chosen_by_the_keyboard_is_announced_as_the_selected_one(desk):
    column = column_of_goals(desk)
    open_goal(desk, 1)
    assert column.get_child_at_index(1).grab_focus()
    with Ear("object:selection-changed") as ear:
        key(DOWN)
        equal(len([event for event in ear.heard(1.5) if event[3] == column]), 1)
    equal(column.get_selection_iface().get_selected_child(0).get_name(), "Further goal 0")


def an_identifier_is_found_in_the_open_goal_only(desk):
    """The screens of goals that were open before stay alive, with the same identifiers."""
    both = [dict(document(), goal={"id": name, "title": name}) for name in ("twin1", "twin2")]
    desk.import_goals(both)
    column = column_of_goals(desk)
    wait_for(lambda: column.clear_cache() or column.get_child_count() == 204, "two more goals")
    start = f"vemra.goal.person.{reference(3)}.outcome.start"
    for place in (203, 202):
        open_goal(desk, place)
        equal(len([node for node in walk(desk.root) if node.get_accessible_id() == start]), 1)
        found = desk.get(start)
        assert has(found, Atspi.StateType.VISIBLE), "it is of the other goal"


def what_a_killed_program_could_not_store_is_stored_by_the_next_one(desk):
    open_goal(desk, 1)
    prefix = f"vemra.goal.person.{reference(5)}.outcome"
    act(desk.get(prefix + ".start"), "Press")
    assert desk.get(prefix + ".note").set_text_contents("before the kill")
    before = len(desk.outcomes())
    other = sqlite3.connect(desk.store, isolation_level=None)
    other.execute("BEGIN IMMEDIATE")
    act(desk.get(prefix + ".save"), "Press")

    def bar():
        return next((node for node in walk(desk.root)
                     if node.get_role_name() == "notification" and has(node, SHOWING)
                     and node.get_name().startswith("Not stored yet:")), None)

    name = wait_for(bar, "the bar of what waits").get_name()
    # The name and the title are isolated from the text around them.
    person, title = "\u2068Person <b>5</b> & more\u2069", "\u2068Find a design lead\u2069"
    assert f"“Was useful” for {person} ({title})" in name, name
    again = next(node for node in walk(desk.root) if node.get_name() == "Try again"
                 and has(node, SHOWING))
    with Ear("object:state-changed:showing") as ear:
        act(again, "Press")
        hears(ear, lambda event: event[1] == 1 and "in use by" in event[3].get_name())
    desk.process.kill()
    desk.process.communicate(timeout=20)
    equal(len(desk.outcomes()), before)
    other.execute("ROLLBACK")
    other.close()
    desk.start()
    stored = desk.newest(before + 1)
    equal((stored["subjectRef"], stored["note"]), (reference(5), "before the kill"))
    wait_for(lambda: not os.path.exists(desk.store + "-waiting"), "the end of the journal")


CHECKS = [
    every_identifier_is_there_and_no_other,
    names_are_shown_as_they_are,
    the_keyboard_alone_records_and_corrects,
    a_recording_and_its_correction_reach_the_store,
    the_details_are_announced_once_and_their_goals_are_links,
    tab_reports_the_control_with_the_focus_and_nothing_else,
    the_page_has_the_name_of_its_title,
    so_they_do_outside_the_viewport,
    the_store_is_whole,
    more_goals_are_announced_and_so_are_new_names_of_goals_out_of_view,
    a_goal_is_chosen_by_selecting_it,
    a_goal_chosen_by_the_keyboard_is_announced_as_the_selected_one,
    an_identifier_is_found_in_the_open_goal_only,
    what_a_killed_program_could_not_store_is_stored_by_the_next_one,
]

Atspi.init()
with tempfile.TemporaryDirectory() as temporary:
    window = Desk(sys.argv[1], temporary)
    failed = run_checks(CHECKS, window, lambda: window.process.poll() is None)
    written = complaints(window.quit())
    if written:
        failed += 1
        print("FAILED the program wrote:", written)
sys.exit(1 if failed else 0)
