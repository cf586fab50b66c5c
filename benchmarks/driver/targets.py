"""The targets: a ratio of two medians of one interleaved run, and its maximum (None where the ratio is
only reported)."""
from candidates import DESK_LENGTHS, TEXT_PLACES, TEXTS, WITH_STRAY
from instructions import RECORDED

MEASURES = [
    ("firstFrame.first", "first painted frame, cold"),
    ("firstFrame.hot", "first painted frame, warm"),
    ("outcome.first", "one outcome more, first"),
    ("outcome.hot", "one outcome more"),
    ("noted.first", "one outcome with a note more, first"),
    ("noted.hot", "one outcome with a note more"),
    ("key.first", "key in an open note, first"),
    ("key.hot", "key in an open note"),
    ("editor.first", "opening an editor, first"),
    ("editor.hot", "opening an editor"),
    ("wheel.first", "wheel step, first"),
    ("wheel.hot", "wheel step"),
    ("end.first", "jump to the end, first"),
    ("end.hot", "jump to the end"),
    ("floor.hot", "the same frame again"),
    ("memory.first", "memory over an empty window"),
    ("anonymous.first", "of it, allocated"),
]

# measure, the most against widgets, the most against Qt Quick's ListView; at 10,000 people. A first
# time is reported beside the hot figure that a target is about; and so is the other arrangement of
# widgets, where the target is about the plain one.
AGAINST_PEERS = [
    ("firstFrame.hot", 1 / 120, 0.75),
    ("firstFrame.first", None, None),
    ("outcome.hot", 1 / 500, 0.6),
    ("outcome.first", None, None),
    ("noted.hot", None, None),
    ("key.hot", 1 / 5, 2.0),
    ("key.first", None, None),
    ("end.hot", 1 / 4, 2.2),
    ("end.first", None, 1.0),
    ("editor.hot", 1 / 300, 1.2),
    ("editor.first", None, None),
    ("wheel.hot", None, 2.0),
    ("wheel.first", None, None),
    ("memory.first", 1 / 35, 1.0),
    ("anonymous.first", None, None),
]
FLAT = ["firstFrame.hot", "outcome.hot", "key.hot", "end.hot", "end.first", "editor.hot",
        "wheel.hot", "memory.first"]
FIRST_TIMES = ["firstFrame.first", "outcome.first", "key.first", "editor.first", "wheel.first"]


def name_of(measure):
    return dict(MEASURES).get(measure, measure)


def rows(results):
    """(what, against what, target, ratio or number or None) for every target."""
    def ratio(above, below):
        one, other = results.median(*above), results.median(*below)
        return one / other if one is not None and other else None

    model = ("vemra-model", 0)
    for measure, widgets, quick in AGAINST_PEERS:
        reported = [("widgets-rows", None)] if widgets is not None else []
        for peer, most in (("widgets-column", widgets), *reported, ("quick-listview", quick)):
            yield (name_of(measure), peer, most,
                   ratio(("vemra", 10_000, measure), (peer, 10_000, measure)))
    for measure, most in [(m, 1.3) for m in FLAT] + [(m, None) for m in FIRST_TIMES]:
        yield (name_of(measure) + ", 100,000 people", "100 people", most,
               ratio(("vemra", 100_000, measure), ("vemra", 100, measure)))
    for candidate, most in (("vemra", 1.25), *((peer, None) for peer in WITH_STRAY)):
        whose = "" if candidate == "vemra" else f"{candidate}'s "
        yield (f"{whose}first painted frame, warm, 10,000 stray outcomes", "100 stray outcomes",
               most, ratio((candidate, 10_000, "firstFrame.hot", 10_000),
                           (candidate, 10_000, "firstFrame.hot", 100)))
    for size in (1_000, 10_000, 100_000, 1_000_000):
        for library, most in (("nlohmann", 1.0), ("simdjson", 4.0)):
            yield (f"reading a document of {size:,} people", f"{library}'s tree", most,
                   ratio(("reading", size, "read.vemra"), ("reading", size, f"read.{library}")))
    for measure, what in (("saved", "from Save to the outcome shown"),
                          ("recorded", "the outcome stored"), ("loaded", "the goal loaded again")):
        yield (f"{what}, 100,000 people", "100 people", 1.5 if measure == "saved" else None,
               ratio(("vemra-desk", 100_000, f"{measure}.hot"),
                     ("vemra-desk", 100, f"{measure}.hot")))
        if measure != "saved":
            yield (f"{what}, 100,000 people", "one bare durable transaction", None,
                   ratio(("vemra-desk", 100_000, f"{measure}.hot"),
                         ("vemra-desk", 100_000, "bare.hot")))
    yield ("from Save to the outcome shown, 100,000 people", "one bare durable transaction", 2.0,
           results.median("vemra-desk", 100_000, "saved per transaction.hot"))
    yield ("from Save to the outcome shown, 100,000 people", "SQLite alone, the same outcome", None,
           results.median("vemra-desk", 100_000, "saved per outcome's transaction.hot"))
    for candidate, sizes, what in DESK_LENGTHS:
        for measure, name in (("opened.first", "the window until its first row is shown"),
                              ("saved.hot", "from Save to the outcome shown")):
            yield (f"{name}, {sizes[-1]:,} {what}", f"{sizes[0]}", 1.5,
                   ratio((candidate, sizes[-1], measure), (candidate, sizes[0], measure)))
    for kind, what in TEXTS.items():
        for place in TEXT_PLACES:
            for measure, name, most in (("first", "first frame", 10.0),
                                        ("wheel", "wheel step", None)):
                yield (f"{name}, {what} as a {place}", "a short text", most,
                       ratio(("texts", 0, f"{kind} {place} {measure}"),
                             ("texts", 0, f"{kind} {place} short {measure}")))
    share = results.median("vemra", 10_000, "own share")
    # Compare warm with warm: a cold scroll area also loads fonts and the style, so our warm frame would
    # look small beside it.
    for measure, when, most in (("firstFrame.hot", "warm", 0.3),
                                ("firstFrame.first", "the first in its process", None)):
        frame = ratio(("vemra", 10_000, "firstFrame.hot"), ("empty-scroll-area", 100, measure))
        yield ("own time in a warm first frame", f"showing an empty QScrollArea, {when}", most,
               share * frame if share is not None and frame is not None else None)
    for people in (1_000, 10_000):
        yield (f"AT-SPI: rows and controls missing, {people:,} people", "none of them", 0,
               results.most("vemra", people, "missing"))
    yield ("AT-SPI: walk per element", "widgets-rows", 0.8,
           ratio(("vemra", 10_000, "walk per 1,000 elements"),
                 ("widgets-rows", 10_000, "walk per 1,000 elements")))
    yield ("AT-SPI: walk per element, processor time of the program", "widgets-rows", None,
           ratio(("vemra", 10_000, "program per 1,000 elements"),
                 ("widgets-rows", 10_000, "program per 1,000 elements")))
    # A walk is the first request to its process; so is the search that it is compared with.
    for measure, which, most in (("find by collection, first", "the first time", 1 / 1000),
                                 ("find by collection", "after that", None)):
        yield (f"AT-SPI: finding an identifier by collection, {which}", "by walking", most,
               ratio(("vemra", 10_000, measure), ("vemra", 10_000, "find by walking")))
    for which in (", first", ""):
        yield (f"AT-SPI: a missing identifier by collection{which}", "one that is there", 10,
               ratio(("vemra", 10_000, f"miss by collection{which}"),
                     ("vemra", 10_000, f"find by collection{which}")))
    yield ("effectiveOutcome, ASCII, all miss", "with std::string's ==", 1.0,
           ratio((*model, "effectiveOutcome/miss/ascii"),
                 (*model, "effectiveOutcome/miss/ascii/std::string")))
    yield ("copy of a snapshot", "a deep copy", 1 / 1000,
           ratio((*model, "snapshot/copy/shared/10000"), (*model, "snapshot/copy/deep/10000")))
    yield ("copy of a snapshot, 100,000 people", "100 people", None,
           ratio((*model, "snapshot/copy/shared/100000"), (*model, "snapshot/copy/shared/100")))
    yield ("equality of shared snapshots, 100,000 people", "100 people", 1.3,
           ratio((*model, "snapshot/equal/shared/100000"), (*model, "snapshot/equal/shared/100")))
    yield ("equality of shared snapshots", "of deep copies", None,
           ratio((*model, "snapshot/equal/shared/10000"), (*model, "snapshot/equal/deep/10000")))
    for tree, measure, most in (("headless tree of every row", "headless.hot", 1 / 100),
                                ("graph whose renderer asks for ten rows", "headless in view.hot",
                                 None)):
        for peer, at_most in (("widgets-column", most), ("widgets-rows", None)):
            yield (f"{tree}, 10,000 people", f"{peer}'s first frame", at_most,
                   ratio(("vemra-headless", 10_000, measure), (peer, 10_000, "firstFrame.hot")))


def changes(results):
    """(what, its recorded count, the difference from that or None) for counted instructions."""
    for name, what in (("scan", "per record of a scan"),
                       ("equality", "per record of an equality"),
                       ("resolve", "per patch of a first tree")):
        count = results.median("vemra-model", 0, f"instructions/{name}")
        yield ("instructions " + what, RECORDED[name],
               None if count is None else count / RECORDED[name] - 1)
