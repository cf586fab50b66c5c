"""Writes mutants into a source: each beside the text that it replaces, chosen when the program runs.

    a < b        becomes   (on(1) ? (a <= b) : on(2) ? (a >= b) : (a < b))
    call();      becomes   { if (on(3)) { } else { call(); } }

An alternative holds the source's own text, because only one mutant is on at a time; the last branch
holds the mutants of what is inside. Every alternative has lines of its own, so that a compiler's
message about one of them names the mutant.
"""
import bisect

SWITCH = "scripts/mutation/Switch.hpp"


class Written:
    """A source with its mutants, and which mutants a line of it belongs to."""

    def __init__(self):
        self.parts, self.line = [], 1
        self.owners = {}   # line: the mutants whose alternative is there
        self.regions = []  # (first line, last line, mutants), inner ones first

    def put(self, text, owner=None):
        first = self.line
        self.parts.append(text)
        self.line += text.count("\n")
        if owner is not None:
            for line in range(first, self.line + 1):
                self.owners.setdefault(line, owner)

    def mutants_at(self, line):
        """The mutants to blame for a message about a line: its owner, else those around it."""
        if line in self.owners:
            return [self.owners[line]]
        around = [r for r in self.regions if r[0] <= line <= r[1]]
        return min(around, key=lambda r: r[1] - r[0])[2] if around else []

    def text(self):
        return "".join(self.parts)


def write(text, mutants):
    """The source `text` with `mutants`, which must be of this very text."""
    regions = {}
    for mutant in mutants:
        regions.setdefault((mutant.start, mutant.end, mutant.form), []).append(mutant)
    # An outer region comes before those in it; the statement before the expression it consists of.
    order = sorted(regions, key=lambda r: (r[0], -r[1], r[2] != "statement"))
    written = Written()
    written.put(f'#include "{SWITCH}"\n')
    _between(written, text, 0, len(text), order, regions)
    return written


def _between(written, text, start, end, order, regions):
    at = 0
    while at < len(order):
        region = order[at]
        inside = bisect.bisect_left(order[at + 1:], region[1], key=lambda r: r[0]) + at + 1
        written.put(text[start:region[0]])
        _region(written, text, region, regions[region], order[at + 1:inside], regions)
        start, at = region[1], inside
    written.put(text[start:end])


def _region(written, text, region, mutants, inner, regions):
    start, end, form = region
    first = written.line
    if form == "insertion":
        for mutant in mutants:
            written.put("\n")
            written.put(f"if ({on(mutant)}) {{ {mutant.text} }}", mutant.id)
            written.put("\n")
    elif form == "statement":
        written.put("{\n")
        for mutant in mutants:
            written.put(f"if ({on(mutant)}) {{ {mutant.text} }} else", mutant.id)
            written.put("\n")
        written.put("{")
        _between(written, text, start, end, inner, regions)
        written.put("}}")
    else:
        decided = any(mutant.text in ("true", "false") for mutant in mutants)
        written.put("(\n")
        for mutant in mutants:
            written.put(f"{on(mutant)} ? ({mutant.text}) :", mutant.id)
            written.put("\n")
        written.put("static_cast<bool>(" if decided else "(")
        _between(written, text, start, end, inner, regions)
        written.put("))")
    written.regions.append((first, written.line, [mutant.id for mutant in mutants]))


def on(mutant):
    return f"::vemra_mutants::on(0x{mutant.id}u)"
