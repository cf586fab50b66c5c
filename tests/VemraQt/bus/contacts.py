"""Uses the list with an editor of docs/views.md as a client in another process: contacts.py PROGRAM."""

import subprocess
import sys

from accessible import ENTER, Atspi, act, actions, application, equal, find, has, key, text_of, wait_for


def main(program):
    process = subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def heard():
        return process.stdout.readline().rstrip("\n")

    def get(identifier):
        return wait_for(lambda: find(page, identifier), identifier)

    def name_of(identifier):
        return wait_for(lambda: find(page, identifier), identifier).get_name()

    try:
        equal(heard(), "ready")
        root = wait_for(lambda: application("contacts_on_the_bus"), "the program on the bus")
        page = root.get_child_at_index(0)

        # Without a keyboard: the text through the editable text, Return through the action.
        act(get("contact.2"), "Press")
        field = get("contact.2.name")
        equal(field.get_name(), "Name")
        equal(text_of(field), "Mai")
        equal(actions(field), ["Submit", "SetFocus"])
        assert Atspi.EditableText.set_text_contents(field, "Mai Nguyen")
        act(field, "Submit")
        equal(heard(), "kept 2 Mai Nguyen")
        wait_for(lambda: name_of("contact.2") == "Mai Nguyen", "the new name")
        assert find(page, "contact.2.name") is None

        # With the keyboard: the opened editor has the focus, and Return submits.
        act(get("contact.1"), "Press")
        act(get("contact.1.name"), "SetFocus")
        wait_for(lambda: has(get("contact.1.name"), Atspi.StateType.FOCUSED), "the focus on the field")
        key(ord("b"))
        key(ENTER)
        equal(heard(), "kept 1 Bob")
        wait_for(lambda: name_of("contact.1") == "Bob", "the new name")
        print("2 contacts renamed")
    finally:
        process.kill()
        process.wait()


if __name__ == "__main__":
    main(sys.argv[1])
