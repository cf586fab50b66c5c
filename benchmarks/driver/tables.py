"""Tables, as Markdown that reads well in a terminal too."""
from candidates import PEERS
from instructions import TOLERANCE
from targets import MEASURES, changes, rows


def table(head, lines):
    widths = [max(len(line[i]) for line in [head, *lines]) for i in range(len(head))]

    def text(line):
        cells = [line[0].ljust(widths[0])]
        cells += [cell.rjust(width) for cell, width in zip(line[1:], widths[1:])]
        return "| " + " | ".join(cells) + " |"

    rule = "|" + "|".join("-" * (width + 1) + (":" if i else "-")
                          for i, width in enumerate(widths)) + "|"
    return "\n".join([text(head), rule, *map(text, lines)])


def number(value):
    if value is None:
        return "-"
    if value >= 100:
        return f"{value:,.0f}"
    if value == int(value):
        return str(int(value))  # a count; a time is never that round
    return f"{value:.2f}" if value >= 1 else f"{value:.3f}"


def ratio(value):
    """0.55, or 1/240 where that says more; a count as it is."""
    if value is None:
        return "not measured"
    if isinstance(value, int):
        return f"{value:,}"
    return f"{value:.2f}" if value >= 0.1 else f"1/{1 / value:,.0f}"


def candidates_table(results, size):
    """Every measure of a size: the library's median, and each peer's with the library's ratio to it."""
    measured = [p for p in PEERS if results.median(p, size, "firstFrame.hot") is not None]
    lines = []
    for measure, name in MEASURES:
        own = results.median("vemra", size, measure)
        if own is None:
            continue
        line = [name, number(own)]
        for peer in measured:
            value = results.median(peer, size, measure)
            line.append("-" if not value else f"{number(value)} ({ratio(own / value)})")
        lines.append(line)
    return table([f"{size:,} people", "vemra", *measured], lines) if lines else ""


def list_table(results, head, entries):
    """Medians of single measures: (name, candidate, size, measure)."""
    lines = [[name, number(results.median(*key))] for name, *key in entries
             if results.median(*key) is not None]
    return table(head, lines) if lines else ""


def targets_table(results):
    lines = []
    for what, against, most, value in rows(results):
        verdict = "" if value is None or most is None else "met" if value <= most else "MISSED"
        lines.append([what, against, "" if most is None else ratio(most), ratio(value), verdict])
    for what, recorded, change in changes(results):
        # Fewer instructions get a mark too, because the recorded count is then outdated.
        verdict = "" if change is None else "met" if abs(change) <= TOLERANCE else "MISSED"
        lines.append([what, f"those recorded, {number(recorded)}", f"±{100 * TOLERANCE:.0f} %",
                      ratio(None) if change is None else f"{100 * change:+.1f} %", verdict])
    return table(["measure", "against", "at most", "is", ""], lines)
