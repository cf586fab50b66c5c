"""Uses the window as a client in another process: client.py PROGRAM [walk COUNT].

Without more arguments it runs the checks below against a screen of 200 people. With "walk COUNT" it
measures a walk over a screen of COUNT people instead.
"""

import subprocess
import sys
import time

from accessible import (
    BACKTAB, DOWN, ENTER, TAB, UP, Atspi, Ear, act, actions, application, complaints, equal, find,
    go_to, has, key, role_of, run_checks, text_of, type_note, wait_for, walk)
from gi.repository import Gio, GLib

PEOPLE = 200
SHOWING = Atspi.StateType.SHOWING


class Window:
    """The program, and its root on the bus."""

    def __init__(self, program, people, environment=None):
        self.process = subprocess.Popen(
            [program, str(people)],
            env=environment,
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
        )
        self.read_until("ready")
        self.root = wait_for(lambda: application("window_on_the_bus"), "the program on the bus")
        self.page = self.root.get_child_at_index(0)

    def read_until(self, wanted):
        """All output of the host before the line, which must appear."""
        lines = []
        while True:
            line = self.process.stdout.readline()
            if not line:
                raise AssertionError(f"the program ended before it wrote {wanted!r}: {lines}")
            line = line.rstrip("\n")
            if line == wanted:
                return lines
            lines.append(line)

    def tell(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        return self.read_until("done " + line)

    def heard(self):
        """The calls of the host since the last time."""
        return self.tell("size 720 800")

    def list(self):
        """The list of people, in the first section."""
        people = self.page.get_child_at_index(1).get_child_at_index(1)
        equal(people.get_role_name(), "list")
        return people

    def find(self, identifier):
        return find(self.page, identifier)

    def get(self, identifier):
        found = wait_for(lambda: self.find(identifier), identifier)
        found.clear_cache()
        return found

    def quit(self):
        self.process.stdin.write("quit\n")
        self.process.stdin.flush()
        stderr = self.process.communicate(timeout=20)[1]
        return self.process.returncode, stderr


def accessibility_bus():
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress",
                                None, None, Gio.DBusCallFlags.NONE, 5000, None).unpack()[0]
    return Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION, None, None)


def place_of(row):
    """The row's place in its list and the number of rows, as a screen reader reads them."""
    attributes = row.get_attributes()
    return attributes.get("posinset"), attributes.get("setsize")


def expected_identifiers():
    identifiers = []
    for i in range(PEOPLE):
        prefix = f"vemra.goal.person.p{i}"
        if i % 2 == 0:
            identifiers.append(prefix + ".show-source")
        identifiers.append(prefix + ".outcome.start")
    return identifiers + ["vemra.goal.path.see-in-starfold", "vemra.goal.path.outcome.start"]


# Each check starts with the window as the previous one left it.


def every_row_is_there_in_order(window):
    found = [node.get_accessible_id() for node in walk(window.page)]
    equal([i for i in found if i], expected_identifiers())
    people = window.list()
    equal(people.get_child_count(), PEOPLE)
    rows = [people.get_child_at_index(i) for i in range(PEOPLE)]
    equal({row.get_role_name() for row in rows}, {"list item"})
    equal([place_of(rows[i]) for i in (0, 150)], [("1", str(PEOPLE)), ("151", str(PEOPLE))])
    equal(rows[7].get_name(), "Person Number 7")
    equal(rows[10].get_name(), "Unnamed person")
    equal([role_of(c) for c in walk(rows[150])],
          ["push button", "label", "push button", "push button"])
    for place in (0, 60, 199):
        equal(people.get_child_at_index(place).get_index_in_parent(), place)
    for place in range(4):
        equal(window.page.get_child_at_index(place).get_index_in_parent(), place)
    equal(rows[150].get_child_at_index(2).get_index_in_parent(), 2)
    equal(rows[150].get_child_at_index(2).get_parent().get_name(), rows[150].get_name())


def headings_name_their_sections(window):
    title, people, path, footer = (window.page.get_child_at_index(i) for i in range(4))
    equal([node.get_role_name() for node in (title, people, path, footer)],
          ["heading", "landmark", "landmark", "label"])
    equal(title.get_attributes().get("level"), "1")
    for section in (people, path):
        heading = section.get_child_at_index(0)
        equal(heading.get_role_name(), "heading")
        equal(heading.get_attributes().get("level"), "2")
        equal(section.get_name(), heading.get_name())
    equal(window.get("vemra.goal.path.outcome.start").get_parent().get_name(), "Supported path")


def all_properties_of_any_object_are_answered(window):
    picker = window.get("vemra.goal.person.p1.outcome.start")
    bus = accessibility_bus()

    def properties(node, interface):
        return bus.call_sync(
            node.app.bus_name, node.path, "org.freedesktop.DBus.Properties", "GetAll",
            GLib.Variant("(s)", (interface,)), None, Gio.DBusCallFlags.NONE, 5000, None).unpack()[0]

    for node in (window.root, window.page, window.list(), picker, picker.get_parent()):
        own = properties(node, "org.a11y.atspi.Accessible")
        equal((own["Name"], own["ChildCount"]), (node.get_name(), node.get_child_count()))
        equal(properties(node, "org.a11y.atspi.Nothing"), {})
    equal(properties(picker, "org.a11y.atspi.Accessible")["AccessibleId"],
          "vemra.goal.person.p1.outcome.start")
    equal(properties(picker, "org.a11y.atspi.Action"), {"NActions": 2})


def what_is_outside_the_viewport_only_lacks_showing(window):
    near, far = window.get("vemra.goal.person.p0.outcome.start"), window.get(
        "vemra.goal.person.p150.outcome.start")
    assert has(near, SHOWING) and not has(far, SHOWING)
    for node in (near, far):
        equal(role_of(node), "push button")
        equal(node.get_name(), "Record outcome")
        assert has(node, Atspi.StateType.VISIBLE)
        assert has(node, Atspi.StateType.SENSITIVE) and has(node, Atspi.StateType.FOCUSABLE)
        equal(actions(node)[0], "Press")
    extents = far.get_extents(Atspi.CoordType.WINDOW)
    assert extents.y > 5000 and extents.width > 0 and extents.height > 0, extents.y


def pressing_far_away_acts(window):
    act(window.get("vemra.goal.person.p150.show-source"), "Press")
    equal(window.heard(), ["evidence ev150"])
    assert not has(window.get("vemra.goal.person.p150.show-source"), SHOWING)
    name = window.get("vemra.goal.person.p77.outcome.start").get_parent().get_child_at_index(0)
    act(name, "Press")
    equal(window.heard(), ["open p77"])


def recording_and_correcting(window, ref="p1"):
    prefix = f"vemra.goal.person.{ref}.outcome"
    act(window.get(prefix + ".start"), "Press")
    picker = window.get(prefix + ".picker")
    equal(picker.get_role_name(), "combo box")
    equal(picker.get_name(), "Outcome")
    equal(text_of(picker), "Was useful")
    assert has(picker, Atspi.StateType.FOCUSED), "the opened editor has the focus"
    choices = [picker.get_child_at_index(i) for i in range(picker.get_child_count())]
    equal([c.get_role_name() for c in choices], ["list item"] * 8)
    equal([c.get_name() for c in choices],
          ["Reached out", "Invited", "Introduced", "Helped", "Was useful", "Not a fit",
           "No action taken", "Something else"])
    interfaces = picker.get_interfaces()
    assert {"Action", "Collection", "Selection", "Text"} <= set(interfaces), interfaces
    equal(picker.get_n_selected_children(), 1)
    equal(picker.get_selected_child(0).get_name(), "Was useful")
    assert picker.is_child_selected(4) and not picker.is_child_selected(5)
    equal(picker.get_selected_child(1), None)
    assert picker.select_child(2)
    equal(text_of(picker), "Introduced")
    equal(picker.get_selected_child(0).get_name(), "Introduced")
    assert not picker.clear_selection(), "something is always chosen"
    act(choices[7], "Press")
    equal(text_of(picker), "Something else")
    save = window.get(prefix + ".save")
    assert not has(save, Atspi.StateType.SENSITIVE), "no note yet"
    note = window.get(prefix + ".note")
    equal(note.get_role_name(), "text")
    equal(note.get_name(), "Note (optional)")
    assert has(note, Atspi.StateType.EDITABLE)
    assert has(note, Atspi.StateType.SINGLE_LINE) and not has(note, Atspi.StateType.MULTI_LINE)
    assert note.set_text_contents("  met at the fair")
    assert note.insert_text(5, "again ", 6)
    equal(text_of(note), "  metagain  at the fair")
    save.clear_cache()
    assert has(window.get(prefix + ".save"), Atspi.StateType.SENSITIVE)
    act(window.get(prefix + ".save"), "Press")
    equal(window.heard(), [f"record {ref} somethingElse metagain  at the fair nil"])
    correct = window.get(prefix + ".correct")
    assert has(correct, Atspi.StateType.FOCUSED), "what took the place has the focus"
    act(correct, "Press")
    equal(text_of(window.get(prefix + ".note")), "metagain  at the fair")
    act(window.get(prefix + ".save"), "Press")
    heard = window.heard()
    assert heard[0].startswith(f"record {ref} somethingElse metagain  at the fair o"), heard
    equal(window.get(prefix + ".corrected-marker").get_name(), "\u00b7 corrected")
    correct = window.get(prefix + ".correct")
    equal(correct.get_description(),
          "Something else \u00b7 corrected, " + correct.get_parent().get_name())


def recording_far_away(window):
    recording_and_correcting(window, "p180")


def focus_scrolls_in(window):
    far = window.get("vemra.goal.person.p100.outcome.start")
    assert not has(far, SHOWING)
    assert far.grab_focus()
    far.clear_cache()
    assert has(far, SHOWING) and has(far, Atspi.StateType.FOCUSED)
    window.tell("scroll 0")
    far.clear_cache()
    assert not has(far, SHOWING) and has(far, Atspi.StateType.FOCUSED)
    act(far, "SetFocus")
    far.clear_cache()
    assert has(far, SHOWING)


def objects_follow_their_rows_and_die_with_them(window):
    kept = window.get("vemra.goal.person.p50.outcome.start")
    row = kept.get_parent()
    place = row.get_index_in_parent()
    gone = window.get("vemra.goal.person.p3.outcome.start")
    gone_row = gone.get_parent()
    window.tell("remove p3")
    window.tell("insert fresh")
    window.tell("insert fresher")
    for node in (kept, row, gone, gone_row):
        node.clear_cache()
    equal(row.get_name(), "Unnamed person" if 50 % 11 == 10 else "Person Number 50")
    equal(row.get_index_in_parent(), place + 1)
    equal(kept.get_accessible_id(), "vemra.goal.person.p50.outcome.start")
    for dead in (gone, gone_row):
        try:
            dead.clear_cache()
            assert not dead.do_action(0), "a dead element acted"
        except GLib.Error:
            pass
    equal(window.find("vemra.goal.person.p3.outcome.start"), None)
    window.tell("shuffle")
    row.clear_cache()
    kept.clear_cache()
    equal(row.get_name(), "Person Number 50")
    act(kept, "Press")
    wait_for(lambda: window.find("vemra.goal.person.p50.outcome.picker"), "the opened editor")
    act(window.get("vemra.goal.person.p50.outcome.cancel"), "Press")
    equal(window.heard(), [])


def an_identifier_is_found_without_a_walk(window):
    wait_for(lambda: window.find("vemra.goal.person.p199.outcome.start"), "it")
    equal(window.find("vemra.goal.person.p1"), None)
    equal(window.find("VEMRA.goal.person.p19.outcome.start"), None)
    first = window.find("vemra.goal.path.outcome.start")
    equal(first.get_name(), "Record outcome")
    equal(first.get_attributes().get("id"), "vemra.goal.path.outcome.start")


def objects_are_found_by_role_without_a_walk(window):
    """As a screen reader does that lists headings or buttons; also rows that are not drawn."""
    def found(roles, states=(), most=0, below=window.page, attributes=None):
        rule = Atspi.MatchRule.new(
            Atspi.StateSet.new(list(states)), Atspi.CollectionMatchType.ALL,
            attributes or {}, Atspi.CollectionMatchType.ALL, roles, Atspi.CollectionMatchType.ANY,
            [], Atspi.CollectionMatchType.ALL, False)
        return below.get_matches(rule, Atspi.CollectionSortOrder.CANONICAL, most, True)

    act(window.get("vemra.goal.person.p1.outcome.start"), "Press")  # a picker, and its choices
    role = Atspi.Role
    everything = list(walk(window.page))
    for sought in ([role.HEADING], [role.LIST_ITEM], [role.PUSH_BUTTON], [role.LABEL],
                   [role.COMBO_BOX, role.TEXT, role.LIST], [role.LANDMARK]):
        equal([node.path for node in found(sought)],
              [node.path for node in everything if node.get_role() in sought])
    equal([node.get_name() for node in found([role.HEADING], below=window.root)],
          [node.get_name() for node in everything if node.get_role() == role.HEADING])
    for level in ("1", "2", "3"):
        equal([node.path for node in found([role.HEADING], attributes={"level": level})],
              [node.path for node in everything if node.get_attributes().get("level") == level])
    equal(len(found([role.LIST_ITEM], most=3)), 3)
    showing = [node.path for node in found([role.PUSH_BUTTON], [SHOWING])]
    equal(showing, [node.path for node in everything
                    if node.get_role() == role.PUSH_BUTTON and has(node, SHOWING)])
    assert 0 < len(showing) < PEOPLE
    row = window.get("vemra.goal.person.p150.outcome.start").get_parent()
    equal([node.path for node in found([role.PUSH_BUTTON], below=row)],
          [node.path for node in walk(row) if node.get_role() == role.PUSH_BUTTON])
    act(window.get("vemra.goal.person.p1.outcome.cancel"), "Press")


def the_keyboard_alone(window):
    """From a new window to a recorded and a corrected outcome, without setting the focus over the bus."""
    prefix = "vemra.goal.person.p0.outcome"
    focused = [node for node in walk(window.page) if has(node, Atspi.StateType.FOCUSED)]
    equal(focused, [])
    go_to(TAB, window.get, prefix + ".start", 3)  # the name, the source, the outcome

    key(ENTER)
    wait_for(lambda: window.find(prefix + ".picker"), "the editor")
    go_to(TAB, window.get, prefix + ".picker", 0)
    key(DOWN)
    key(DOWN)
    key(UP)
    equal(text_of(window.get(prefix + ".picker")), "Not a fit")
    type_note(window.get, prefix + ".note", "hello")
    equal(window.heard(), [])
    go_to(TAB, window.get, prefix + ".save", 1)
    key(ENTER)
    equal(window.heard(), ["record p0 notAFit hello nil"])

    go_to(TAB, window.get, prefix + ".correct", 0)
    key(TAB)  # away to the next person, and back
    go_to(BACKTAB, window.get, prefix + ".correct", 1)
    key(ENTER)
    go_to(TAB, window.get, prefix + ".picker", 0)
    key(UP)
    equal(text_of(window.get(prefix + ".picker")), "Was useful")
    go_to(TAB, window.get, prefix + ".save", 2)
    key(ENTER)
    equal(window.heard(), ["record p0 wasUseful hello o1"])
    equal(window.get(prefix + ".corrected-marker").get_name(), "\u00b7 corrected")


def comings_and_goings_are_heard(window):
    with Ear("object:children-changed") as ear:
        def heard():
            return [(what, index, child.path if child else None, about.path)
                    for what, index, child, about in ear.heard()]

        def row_of(ref):
            row = window.get(f"vemra.goal.person.{ref}.outcome.start").get_parent()
            return row.get_index_in_parent(), row.path

        people = window.list().path
        heard()
        for ref in ("p199", "p20"):  # at the top by now, and far away
            index, row = row_of(ref)
            window.tell("remove " + ref)
            equal(heard(), [("remove", index, row, people)])
        window.tell("scroll 5000")
        equal(heard(), [])
        window.tell("insert outside")
        equal(heard(), [("add", 0, row_of("outside")[1], people)])
        window.tell("scroll 0")
        window.tell("insert inside")
        equal(heard(), [("add", 0, row_of("inside")[1], people)])
        start = window.get("vemra.goal.person.inside.outcome.start")
        row, gone, place = start.get_parent(), start.path, start.get_index_in_parent()
        act(start, "Press")
        editor = [window.get("vemra.goal.person.inside.outcome." + name).path
                  for name in ("picker", "note", "save", "cancel")]
        equal(heard(), [("remove", place, gone, row.path)] +
              [("add", place + i, path, row.path) for i, path in enumerate(editor)])
        window.tell("shuffle")
        equal(heard(), [("remove", -1, None, people),
                        ("add", -1, window.list().get_child_at_index(0).path, people)])
        # A client that also listens to states would get a removal from the toolkit, too.
        with Ear("object:state-changed"):
            index, row = row_of("p30")
            window.tell("remove p30")
            equal(heard(), [("remove", index, row, people)])


def names_focus_and_text_are_heard(window):
    start = window.get("vemra.goal.person.p60.outcome.start")
    row = start.get_parent()
    button = row.get_child_at_index(0)
    equal(row.get_name(), button.get_name())
    with Ear("object:property-change:accessible-name") as ear:
        window.tell("rename p60 Ada Lovelace")
        equal(sorted(about.path for _, _, _, about in ear.heard(0.4)),
              sorted([row.path, button.path]))
        equal((row.get_name(), button.get_name()), ("Ada Lovelace", "Ada Lovelace"))
    with Ear("object:state-changed:focused") as ear:
        start.grab_focus()
        equal([(gained, about.path) for _, gained, _, about in ear.heard() if gained],
              [(1, start.path)])
    act(start, "Press")
    note = window.get("vemra.goal.person.p60.outcome.note")
    with Ear("object:text-changed") as ear:
        note.set_text_contents("ink")
        equal([(what, data, about.path) for what, _, data, about in ear.heard()
               if what.startswith("insert")], [("insert", "ink", note.path)])
    act(window.get("vemra.goal.person.p60.outcome.cancel"), "Press")


def what_scrolls_is_heard_to_show(window):
    window.tell("scroll 0")
    near = window.get("vemra.goal.person.p1.outcome.correct")
    far = window.get("vemra.goal.person.p120.outcome.start")
    equal((has(near, SHOWING), has(far, SHOWING)), (True, False))
    with Ear("object:state-changed:showing") as ear:
        def heard():
            return {(showing, about.path) for _, showing, _, about in ear.heard()
                    if about.path in (near.path, far.path)}

        far.grab_focus()
        equal(heard(), {(0, near.path), (1, far.path)})
        equal((has(near, SHOWING), has(far, SHOWING)), (False, True))
    # An element that cannot have the focus is still scrolled into view.
    window.tell("scroll 0")
    row = far.get_parent()
    label = row.get_child_at_index(1)
    for scroll in (lambda: label.scroll_to(Atspi.ScrollType.ANYWHERE), lambda: not label.grab_focus(),
                   lambda: row.scroll_to(Atspi.ScrollType.ANYWHERE), lambda: not row.grab_focus()):
        wait_for(lambda: not has(label, SHOWING), "the top")
        assert scroll()
        wait_for(lambda: has(label, SHOWING) and has(row, SHOWING), "the label")
        window.tell("scroll 0")


def enabling_is_heard(window):
    prefix = "vemra.goal.person.p40.outcome"
    act(window.get(prefix + ".start"), "Press")
    save = window.get(prefix + ".save")
    note = window.get(prefix + ".note")
    states = ("enabled", "sensitive")
    with Ear("object:state-changed") as ear:
        def heard():
            return sorted((what, number) for what, number, _, about in ear.heard()
                          if about.path == save.path and what in states)

        for choose, is_enabled in ((7, False), (0, True), (7, False)):  # "Something else" wants a note
            act(window.get(prefix + ".picker").get_child_at_index(choose), "Press")
            equal(heard(), [(state, int(is_enabled)) for state in states])
            equal(has(save, Atspi.StateType.SENSITIVE), is_enabled)
        note.set_text_contents("by phone")
        equal(heard(), [(state, 1) for state in states])
        note.set_text_contents("by letter")
        equal(heard(), [])
    act(window.get(prefix + ".cancel"), "Press")


def the_host_names_the_page(window):
    equal(window.page.get_name(), "Goal")
    with Ear("object:property-change:accessible-name") as ear:
        window.tell("call What came of it")
        equal([about.path for _, _, _, about in ear.heard(0.4)], [window.page.path])
    window.page.clear_cache()
    equal(window.page.get_name(), "What came of it")


def the_hosts_focus_is_heard_far_away(window):
    window.tell("scroll 0")
    far = window.get("vemra.goal.person.p130.outcome.start")
    with Ear("object:state-changed:focused") as ear:
        equal(window.tell("focus vemra.goal.person.p130.outcome.start"), [])
        equal([(gained, about.path) for _, gained, _, about in ear.heard() if gained],
              [(1, far.path)])
    assert has(far, SHOWING)
    equal(window.tell("focus vemra.goal.person.p999.outcome.start"), ["nothing to focus"])


CHECKS = [
    every_row_is_there_in_order,
    headings_name_their_sections,
    all_properties_of_any_object_are_answered,
    what_is_outside_the_viewport_only_lacks_showing,
    an_identifier_is_found_without_a_walk,
    the_keyboard_alone,
    objects_are_found_by_role_without_a_walk,
    pressing_far_away_acts,
    recording_and_correcting,
    recording_far_away,
    focus_scrolls_in,
    objects_follow_their_rows_and_die_with_them,
    comings_and_goings_are_heard,
    enabling_is_heard,
    names_focus_and_text_are_heard,
    what_scrolls_is_heard_to_show,
    the_host_names_the_page,
    the_hosts_focus_is_heard_far_away,
]


def check(program):
    window = Window(program, PEOPLE)
    failures = run_checks(CHECKS, window, lambda: window.process.poll() is None)
    status, stderr = window.quit()
    if status != 0 or complaints(stderr):
        failures += 1
        print(f"FAILED the program ended with {status} and wrote: {stderr}")
    return failures


def measure(program, people):
    window = Window(program, people)
    start = time.monotonic()
    count = sum(1 for _ in walk(window.page))
    first = time.monotonic() - start
    print(f"{people} people: {count} elements walked in {first:.2f} s, "
          f"{1000 * first / count:.3f} ms an element")
    with open(f"/proc/{window.process.pid}/stat") as stat:
        fields = stat.read().rsplit(")", 1)[1].split()
    print(f"of it {(int(fields[11]) + int(fields[12])) / 100:.2f} s in the program, "
          f"{time.process_time():.2f} s in the client")
    last = f"vemra.goal.person.p{people - 1}.outcome.start"
    start = time.monotonic()
    for _ in range(20):
        assert window.find(last)
    print(f"the last identifier found in {1000 * (time.monotonic() - start) / 20:.2f} ms")
    window.quit()
    return 0


if __name__ == "__main__":
    Atspi.init()
    if len(sys.argv) > 3 and sys.argv[2] == "walk":
        sys.exit(measure(sys.argv[1], int(sys.argv[3])))
    sys.exit(1 if check(sys.argv[1]) else 0)
