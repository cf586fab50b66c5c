"""Measures, prints tables and writes the figures into build/bench; see scripts/bench."""
import argparse
import os
import platform
import sys
import time

import instructions
import picture
import tables
from candidates import (BIN, DESK_LENGTHS, OUT, ROOT, SIZES, TEXT_PLACES, TEXTS, WITH_STRAY,
                        figures, jobs, micro_benchmarks, output_of)
from results import Results

# The candidates that are walked on the accessibility bus, by people: the two that expose everything
# also where the calls inside a program weigh more than the bus.
WALKED = {1_000: ["vemra", "widgets-rows", "listview", "quick-listview"],
          10_000: ["vemra", "widgets-rows"]}

PICTURE = OUT / "performance.svg"

# A quick run omits so much that it must not replace a full one.
FULL = OUT / "results.json"
QUICK = OUT / "results-quick.json"


def say(text):
    print(text, file=sys.stderr, flush=True)


def interleaved(results, quick, rounds):
    """Every job once in each round, so that other load on the machine affects all of them alike.

    The first round warms up, files and the processor, and looks whether frames are whole.
    """
    every = jobs(quick)
    for number in range(rounds + 1):
        started = time.monotonic()
        for job in every:
            for measure, value in job.run(checking=number == 0).items():
                if number:
                    results.add(job.candidate, job.size, measure, value, job.stray)
        say(f"round {number} of {rounds} took {time.monotonic() - started:.0f} s"
            + ("" if number else " (not counted)"))


def models(results, rounds, seconds):
    for _ in range(rounds):
        for name, value in micro_benchmarks("-headless", seconds).items():
            results.add("vemra-model", 0, name, value)


def counts(results):
    for name in instructions.COUNTED:
        results.add("vemra-model", 0, f"instructions/{name}", instructions.per_element(name))
    results.add("vemra", 10_000, "own share", instructions.own_share("vemra", 10_000))


def bus(results, rounds):
    """Walks, each in a new process. The uncounted round has 1,000 people only, to warm up
    files and the processor: one with 10,000 takes minutes, and would warm up nothing more."""
    command = [ROOT / "benchmarks/bus/run", BIN / "vemra-bench-screen"]
    for number in range(rounds + 1):
        started = time.monotonic()
        for people in WALKED if number else [min(WALKED)]:
            for candidate in WALKED[people]:
                found = figures(output_of([*command, candidate, str(people)]))
                for measure, value in found.items() if number else ():
                    results.add(candidate, people, measure, value)
        say(f"walk {number} of {rounds} took {time.monotonic() - started:.0f} s"
            + ("" if number else " (not counted)"))


def machine():
    with open("/proc/cpuinfo", encoding="utf-8") as lines:
        model = next((line.split(":")[1].strip() for line in lines if line.startswith("model name")),
                     platform.machine())
    return f"{model}, {os.cpu_count()} processors, {platform.system()} {platform.release()}"


def report(results):
    print("Medians in milliseconds, memory in MiB; in brackets the library's ratio to the peer.\n")
    for size in SIZES:
        if text := tables.candidates_table(results, size):
            print(text + "\n")
    for text in (
        tables.list_table(results, ["vemra-inspect, from start to end", "median"], [
            (f"{size:,} people, {unit}", "vemra-inspect", size, measure)
            for size in SIZES for measure, unit in (("inspect.time", "ms"),
                                                    ("inspect.peak", "MiB at the most"))]),
        tables.list_table(results, ["reading a document", "median, ms"], [
            (f"{size:,} people: {what}", "reading", size, f"read.{reader}") for size in SIZES
            for reader, what in (("vemra", "vemra, into records"),
                                 ("nlohmann", "nlohmann::json::parse, into a tree"),
                                 ("simdjson", "simdjson's DOM, into a tree"))]),
        tables.list_table(results, ["vemra-desk", "median, ms"], [
            (f"{size:,} people: {what}", "vemra-desk", size, measure) for size in SIZES
            for measure, what in (("opened.first", "the window until its first row is shown"),
                                  ("saved.hot", "from Save to the outcome shown"),
                                  ("recorded.hot", "the outcome stored"),
                                  ("loaded.hot", "the goal loaded again"),
                                  ("changed.hot", "the goal loaded after another program's outcome"),
                                  ("letter.hot", "a letter typed to find people, until its frame"),
                                  ("letter.most", "the longest of eight such letters"),
                                  ("bare.hot", "one bare durable transaction"),
                                  ("bare outcome.hot", "the same outcome, by SQLite alone"))]),
        tables.list_table(results, ["vemra-desk, one goal of ten people", "median, ms"], [
            (f"{size:,} {what}: {measured}", candidate, size, measure)
            for candidate, sizes, what in DESK_LENGTHS for size in sizes
            for measure, measured in (("opened.first", "the window until its first row is shown"),
                                      ("saved.hot", "from Save to the outcome shown"))]),
        tables.list_table(results, ["one very long text", "median, ms"], [
            (f"{what} as a {place}: {measured}", "texts", 0, f"{kind} {place} {measure}")
            for kind, what in TEXTS.items() for place in TEXT_PLACES
            for measure, measured in (("first", "first frame"),
                                      ("short first", "with a short text"),
                                      ("wheel", "wheel step"),
                                      ("short wheel", "wheel step with a short text"))]),
        *(tables.list_table(results, [f"accessibility bus, {people:,} people", "median"], [
            (f"{candidate}: {measure}", candidate, people, measure) for candidate in candidates
            for measure in ("elements", "missing", "exposed", "walk per 1,000 elements",
                            "program per 1,000 elements", "find by walking",
                            "find by collection, first", "find by collection",
                            "miss by collection, first", "miss by collection")])
          for people, candidates in WALKED.items()),
        tables.list_table(results, ["first frames", "median, ms"], [
            ("an empty QScrollArea, cold", "empty-scroll-area", 100, "firstFrame.first"),
            ("an empty QScrollArea, warm", "empty-scroll-area", 100, "firstFrame.hot"),
            *((f"{candidate}: 10,000 people, {stray:,} stray outcomes", candidate, 10_000,
               "firstFrame.hot", stray)
              for candidate in ("vemra", *WITH_STRAY) for stray in (100, 10_000)),
            ("headless tree of every row, 10,000 people", "vemra-headless", 10_000, "headless.hot"),
            ("graph whose renderer asks for ten rows, 10,000 people", "vemra-headless", 10_000,
             "headless in view.hot")]),
        tables.list_table(results, ["model, each or per element", "ns or instructions"], [
            (key[2], *key[:3]) for key in sorted(results.runs) if key[0] == "vemra-model"]),
        tables.targets_table(results),
    ):
        if text:
            print(text + "\n")


def parts(quick):
    """The parts of a run, in their order: the most expensive one last."""
    if quick:
        return [lambda results: interleaved(results, quick=True, rounds=3),
                lambda results: models(results, rounds=1, seconds=0.05)]
    return [lambda results: interleaved(results, quick=False, rounds=7),
            lambda results: models(results, rounds=7, seconds=0.1),
            counts,
            lambda results: bus(results, rounds=7)]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--report", action="store_true")
    wanted = parser.parse_args()
    if wanted.report:
        if not FULL.exists():
            raise SystemExit(f"there is no {FULL.relative_to(ROOT)} yet; scripts/bench writes it")
        results = Results.read(FULL)
        report(results)
        if picture.is_possible():
            picture.draw(results, PICTURE)
        return
    results = Results()
    say(f"{machine()}, load {os.getloadavg()[0]:.1f}")
    started = time.monotonic()
    file = QUICK if wanted.quick else FULL
    for part in parts(wanted.quick):
        part(results)
        results.write(file)  # after each part, so that a part that fails loses no earlier figures
    report(results)
    if not wanted.quick and picture.is_possible():
        picture.draw(results, PICTURE)
        say(f"the picture is {PICTURE.relative_to(ROOT)}; docs/images/performance.svg is a copy of one")
    say(f"took {time.monotonic() - started:.0f} s; every figure is in {file.relative_to(ROOT)}"
        + (", the last full run still in " + FULL.name if wanted.quick and FULL.exists() else ""))


main()
