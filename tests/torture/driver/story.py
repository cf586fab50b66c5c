"""A story of a store: a client's commands, and the content that must be there after any number of them."""
from stand import GOALS, check_integrity, notes_of, require, version_of


class Story:
    """Steps for one client, with the answers that it gave.

    A step is acknowledged when its answer is `ok`: it must be there from then on. A step that was
    refused must not. The one at which the client ended may be there or not, as a whole.
    """

    def __init__(self, stand, patience=2000):
        self.stand = stand
        self.patience = patience
        self.steps = []  # (kind, what, line)

    def open(self):
        self.steps.append(("open", None, f"open\t{self.stand.store}\t{self.patience}"))
        return self

    def record(self, goal, *notes):
        for note in notes:
            self.steps.append(("record", (goal, note), f"record\t{goal}\t{note}"))
        return self

    def load(self, version, people=3):
        """Imports both goals at once."""
        documents = [self.stand.document(goal, version, people) for goal in GOALS]
        self.steps.append(("load", version, "\t".join(["import", *documents])))
        return self

    def tell(self, shim=None):
        return self.stand.talk([line for _, _, line in self.steps], shim=shim)

    def acknowledged(self, answers):
        return [step for step, (good, _) in zip(self.steps, answers) if good]

    def check(self, answers, store=None, uncertain=()):
        """Compares the store with the answers. `uncertain`: refused steps that may be there."""
        store = store or self.stand.store
        done = self.acknowledged(answers)
        next_step = self.steps[len(answers):][:1]
        goals = self.stand.content(store)

        versions = [what for kind, what, _ in done if kind == "load"][-1:]
        allowed = versions + [what for kind, what, _ in [*next_step, *uncertain] if kind == "load"]
        require(goals.keys() in ({*GOALS}, set()), f"only some goals are there: {[*goals]}")
        require(goals or not versions, f"version {versions} is lost")
        found = {version_of(goal) for goal in goals.values()}
        require(len(found) <= 1, f"one import left two versions: {found}")
        require(found <= set(allowed), f"version {found} is there instead of one of {allowed}")

        for goal in goals:
            wanted = [what[1] for kind, what, _ in done if kind == "record" and what[0] == goal]
            maybe = [what[1] for kind, what, _ in [*next_step, *uncertain]
                     if kind == "record" and what[0] == goal]
            notes = notes_of(goals[goal])
            require(len(set(notes)) == len(notes), f"an outcome is there twice: {notes}")
            extra = set(notes) - set(wanted)
            require(extra <= set(maybe), f"not acknowledged, but there: {extra - set(maybe)}")
            require([note for note in notes if note not in extra] == wanted,
                    f"acknowledged for {goal}: {wanted}; there: {notes}")
            ids = {text for step, (good, text) in zip(self.steps, answers)
                   if good and text and step[0] == "record" and step[1][0] == goal}
            there = {outcome["id"] for outcome in goals[goal]["outcomes"]}
            require(ids <= there, f"acknowledged by ids that are not there: {ids - there}")
        check_integrity(store)


def usual(stand, patience=2000):
    """Makes a store, fills it, continues, opens it again, and imports more than SQLite's log keeps."""
    story = Story(stand, patience).open().load(1).record("g1", "a", "b").record("g2", "c").load(2)
    story.open().record("g1", "d").load(3, people=60).record("g2", "e").open().record("g1", "f")
    return story.load(4)
