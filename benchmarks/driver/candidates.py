"""The measured candidates, their sizes, and how to read a figure from a program."""
import dataclasses
import functools
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
BIN = ROOT / "build/bench/bin"
OUT = ROOT / "build/bench"

SIZES = [100, 1_000, 10_000, 100_000]
PEERS = ["widgets-column", "widgets-rows", "listview", "quick-listview", "quick-repeater"]
# One widget or item for every element: at 100,000 people a first frame takes the better part of a
# minute, or (the repeater) far more.
LARGEST = {"widgets-column": 10_000, "widgets-rows": 10_000, "quick-repeater": 10_000}
# Peers that are also measured with stray outcomes: those whose first frame does not take seconds.
WITH_STRAY = ["listview", "quick-listview"]
# The other lengths of a store: a candidate, its sizes, and what is counted.
DESK_LENGTHS = [("desk-outcomes", [10, 10_000, 100_000], "outcomes"),
                ("desk-corrections", [10, 10_000], "corrections of one person"),
                ("desk-goals", [10, 10_000], "goals")]
# The very long texts of vemra-bench-texts, and where they stand on the page.
TEXTS = {"words-1M": "1 MB of words", "letters-1M": "1 MB without a blank",
         "words-10M": "10 MB of words", "marks": "a million marks on one letter",
         "emoji": "100,000 emoji"}
TEXT_PLACES = ["reason", "note"]
READERS = ["vemra", "nlohmann", "simdjson"]


@dataclasses.dataclass(frozen=True)
class Job:
    """One process; each of its figures is one run of one measure."""
    candidate: str
    size: int
    mode: str
    stray: int = 0

    def run(self, checking=False):
        """Figures by measure. Raises SystemExit with the program's own message when it fails.

        When checking, the program that takes times looks whether each frame was whole: it fails
        where one of our own was not, and what it notes of peers goes to the terminal. The looking
        costs time, so such figures are not to be counted.
        """
        if self.candidate == "vemra-inspect":
            return self.run_inspect()
        if self.candidate == "vemra-headless":
            return self.run_headless()
        if self.candidate == "vemra-desk":
            return self.run_desk(self.size)
        if self.candidate == "desk-outcomes":
            return self.run_desk(10, self.size)
        if self.candidate == "desk-corrections":
            return self.run_desk(10, 0, self.size)
        if self.candidate == "desk-goals":
            return self.run_desk(10, 0, 0, self.size)
        if self.candidate == "texts":
            return self.run_texts()
        if self.candidate == "reading":
            return {measure: value for reader in READERS for measure, value in figures(output_of(
                [BIN / "vemra-bench-reading", reader, str(self.size)])).items()}
        mode = "check" if checking and self.mode == "times" else self.mode
        command = [BIN / "vemra-bench-screen", self.candidate, mode, str(self.size),
                   str(self.stray)]
        return figures(output_of(command, notes=sys.stderr if mode == "check" else None))

    def run_desk(self, *lengths):
        """By the numbers of people, outcomes, corrections and goals."""
        return figures(output_of([BIN / "vemra-bench-desk", *map(str, lengths)]))

    def run_texts(self):
        """Each text beside the same page with a short one, in one process."""
        found = {}
        for kind in TEXTS:
            for place in TEXT_PLACES:
                line = output_of([BIN / "vemra-bench-texts", kind, place]).split()
                for name, value in zip(("first", "short first", "wheel", "short wheel"), line[2:]):
                    found[f"{kind} {place} {name}"] = float(value)
        return found

    def run_inspect(self):
        command = [BIN / "vemra-inspect", document(self.size, self.stray)]
        started = time.perf_counter()
        done = subprocess.run(command, env=environment(), stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, check=False)
        elapsed = time.perf_counter() - started
        if done.returncode != 0:
            raise SystemExit(f"{' '.join(map(str, command))} ended with {done.returncode}")
        return {"inspect.time": 1000 * elapsed, "inspect.peak": peak_of(command)}

    def run_headless(self):
        """Without a window: all rows in a tree, and a graph whose renderer requests ten of them."""
        found = micro_benchmarks("graph/headless", 0.2)
        return {"headless.hot": found["graph/headless-tree/10000"] / 1e6,
                "headless in view.hot": found["graph/headless-in-view/10000"] / 1e6}


@functools.cache
def document(size, stray):
    """The sample result as a file, written once in each run: an older program's file may differ."""
    file = OUT / f"sample-{size}-{stray}.json"
    text = output_of([BIN / "vemra-bench-document", str(size), str(stray)])
    file.write_text(text, encoding="utf-8")
    return file


def peak_of(command):
    """The maximum resident memory of a program, in MiB.

    A process counts what its memory held before it became the program, so one started from here
    would show at least this driver's own. A shell of a megabyte starts it instead, and then turns
    into what can ask the kernel for the most that any child of that shell had.
    """
    ask = "import resource; print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)"
    return int(output_of(["/bin/sh", "-c", f'"$@" >/dev/null || exit; exec python3 -S -c "{ask}"',
                          "sh", *command])) / 1024


def environment():
    """The same for every program, independent of this machine's desktop settings."""
    kept = {name: os.environ[name] for name in ("PATH", "HOME", "TMPDIR") if name in os.environ}
    folder = pathlib.Path(tempfile.gettempdir()) / f"vemra-bench-{os.getuid()}"
    folder.mkdir(mode=0o700, exist_ok=True)
    return kept | {"LC_ALL": "C.UTF-8", "TZ": "UTC", "XDG_RUNTIME_DIR": str(folder)}


def output_of(command, variables=None, notes=None):
    """A program's standard output; its other output goes to NOTES, or nowhere."""
    done = subprocess.run([str(word) for word in command], env=environment() | (variables or {}),
                          text=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, check=False)
    if done.returncode != 0:
        raise SystemExit(f"{' '.join(map(str, command))} ended with {done.returncode}: "
                         f"{done.stderr.strip()}")
    if notes and done.stderr:
        print(done.stderr.rstrip(), file=notes, flush=True)
    return done.stdout


def figures(text):
    found = {}
    for line in text.splitlines():
        measure, _, value = line.partition("\t")
        if value:
            found[measure] = float(value)
    return found


def micro_benchmarks(pattern, seconds):
    """Nanoseconds of processor time by name; per element where a benchmark counts elements."""
    report = json.loads(output_of([
        BIN / "vemra-bench-model", f"--benchmark_filter={pattern}", "--benchmark_format=json",
        f"--benchmark_min_time={seconds}"]))
    nanoseconds = {"ns": 1.0, "us": 1e3, "ms": 1e6}
    found = {}
    for entry in report["benchmarks"]:
        if "error_message" in entry:
            raise SystemExit(f"{entry['name']}: {entry['error_message']}")
        time_of_one = entry["cpu_time"] * nanoseconds[entry["time_unit"]]
        rate = entry.get("items_per_second")
        found[entry["name"]] = 1e9 / rate if rate else time_of_one
    return found


def jobs(quick):
    """The jobs of one round, in their order: the candidates of a size right after each other."""
    if quick:
        # Only the quick measures of the slow peer.
        every = [Job("widgets-column", 10_000, mode) for mode in ("first-frames", "memory")]
        for size in (100, 10_000):
            for candidate in ("vemra", "listview", "quick-listview"):
                every += [Job(candidate, size, "times"), Job(candidate, size, "memory")]
    else:
        every = []
        for size in SIZES:
            for candidate in ["vemra", *PEERS]:
                if size <= LARGEST.get(candidate, size):
                    every += [Job(candidate, size, "times"), Job(candidate, size, "memory")]
            every.append(Job("vemra-inspect", size, "inspect"))
    every.append(Job("empty-scroll-area", 100, "first-frames"))
    every += [Job(candidate, 10_000, "first-frames", stray) for stray in (100, 10_000)
              for candidate in ("vemra", *WITH_STRAY)]
    every.append(Job("vemra-headless", 10_000, "headless"))
    every += [Job("vemra-desk", size, "desk") for size in SIZES]
    every += [Job(candidate, size, "desk") for candidate, sizes, _ in DESK_LENGTHS
              for size in sizes]
    every += [Job("reading", size, "reading") for size in (*SIZES, *(() if quick else (1_000_000,)))]
    if quick:
        every.append(Job("vemra-inspect", 10_000, "inspect"))
    else:
        every.append(Job("texts", 0, "texts"))
    return every
