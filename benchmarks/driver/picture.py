"""The picture at the top of docs/performance.md: time against length, one panel a measure."""
import importlib.util
import math

from candidates import PEERS, SIZES

# The panels: what, its unit, and the lines in it as (name, candidate, measure).
PANELS = [
    ("first painted frame, warm", "ms",
     [(name, name, "firstFrame.hot") for name in ("vemra", *PEERS)]),
    ("one outcome more", "ms", [(name, name, "outcome.hot") for name in ("vemra", *PEERS)]),
    ("key in an open note", "ms", [(name, name, "key.hot") for name in ("vemra", *PEERS)]),
    ("jump to the end", "ms", [(name, name, "end.hot") for name in ("vemra", *PEERS)]),
    ("memory over an empty window", "MiB",
     [(name, name, "memory.first") for name in ("vemra", *PEERS)]),
    ("from Save to the outcome shown", "ms",
     [("vemra", "vemra-desk", "saved.hot"), ("a bare transaction", "vemra-desk", "bare.hot")]),
    ("reading a document", "ms",
     [("vemra", "reading", "read.vemra"), ("nlohmann-json's tree", "reading", "read.nlohmann"),
      ("simdjson's tree", "reading", "read.simdjson")]),
    ("vemra-inspect, start to end", "ms", [("vemra", "vemra-inspect", "inspect.time")]),
]
COLOURS = {"vemra": "#0b6e4f", "widgets-column": "#c1121f", "widgets-rows": "#e07a5f",
           "listview": "#3d5a80", "quick-listview": "#7b2cbf", "quick-repeater": "#b5838d",
           "a bare transaction": "#6c757d", "nlohmann-json's tree": "#c1121f",
           "simdjson's tree": "#3d5a80"}


def is_possible():
    """Whether the package that draws is installed (scripts/packages/bench)."""
    return importlib.util.find_spec("matplotlib") is not None


def draw(results, file):
    """Draws the medians into an SVG file. A candidate that was not measured has no line."""
    import matplotlib
    matplotlib.use("svg")
    from matplotlib import pyplot
    # Texts as texts, and the same bytes for the same figures.
    matplotlib.rcParams.update({"svg.fonttype": "none", "svg.hashsalt": "vemra", "font.size": 8,
                                "font.family": "sans-serif"})
    figure, panels = pyplot.subplots(2, 4, figsize=(13, 6.2), layout="constrained")
    for panel, (title, unit, lines) in zip(panels.flat, PANELS):
        values_drawn = []
        for name, candidate, measure in lines:
            points = [(size, value) for size in (*SIZES, 1_000_000)
                      if (value := results.median(candidate, size, measure)) is not None]
            values_drawn += [value for _, value in points]
            if points:
                panel.plot(*zip(*points), marker="o", markersize=3, label=name,
                           color=COLOURS[name], linewidth=2.2 if name == "vemra" else 1.1,
                           zorder=3 if name == "vemra" else 2)
        panel.set(xscale="log", yscale="log", xlabel="people", ylabel=unit)
        panel.set_title(title, loc="left", fontsize=9)
        if not values_drawn:
            panel.set_visible(False)
            continue
        # Whole decades, so that each panel has figures at its axis.
        panel.set_ylim(10 ** math.floor(math.log10(min(values_drawn))),
                       10 ** math.ceil(math.log10(max(values_drawn))))
        panel.minorticks_off()
        panel.grid(True, which="major", linewidth=0.4, alpha=0.5)
        panel.spines[["top", "right"]].set_visible(False)
    for number, place in ((3, "upper left"), (5, "best"), (6, "best")):  # where there is room
        if panels.flat[number].get_visible():
            panels.flat[number].legend(frameon=False, fontsize=7, loc=place)
    figure.savefig(file, metadata={"Date": None, "Creator": None})
    pyplot.close(figure)
