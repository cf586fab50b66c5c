"""The program behind scripts/mutate, which describes it."""
import argparse
import concurrent.futures
import json
import pathlib
import random
import re
import subprocess
import sys

import equivalents
import programs
import tree

STATUS = ["killed", "equivalent", "alive", "does not compile"]


def main():
    options = arguments()
    folders = [str(pathlib.PurePosixPath(f)) for f in options.folder]
    counts = []
    for with_qt in (False, True):
        copy = tree.Tree(with_qt, options.headers)
        copy.copy()
        here = [f for f in folders if any(belongs(name, f) for name in copy.sources)]
        if here:
            counts += work(copy, here, options)
    known = {count["folder"] for count in counts}
    for folder in folders:
        if folder not in known and not options.list:
            raise SystemExit(f"scripts/mutate: {folder} has no sources that can be mutated")
    closing(counts)
    sys.exit(1 if any(c["alive"] or c["wrong"] for c in counts) else 0)


def arguments():
    parser = argparse.ArgumentParser(prog="scripts/mutate", add_help=False)
    parser.add_argument("folder", nargs="+")
    parser.add_argument("--count", type=int, default=0)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--tests", default="")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--only", action="append", default=[])
    parser.add_argument("--headers", action="store_true")
    parser.add_argument("--alive", action="store_true")
    parser.add_argument("--list", action="store_true")
    return parser.parse_args()


def belongs(name, folder):
    return name == folder or name.startswith(folder + "/")


def work(copy, folders, options):
    """Chooses mutants in the folders, builds, runs; the counts of each folder."""
    copy.configure()
    copy.find(tuple(f"{f}/" if not f.endswith((".cpp", ".hpp")) else f for f in folders))
    last = copy.build / "results.json"
    results = json.loads(last.read_text()) if last.exists() else {}
    chosen = {}
    for folder in folders:
        found = [m for m in copy.mutants if belongs(m.file, folder)]
        if options.only:
            found = [m for m in found if m.id in options.only]
        elif options.alive:
            found = [m for m in found if results.get(m.id) == "alive"]
        elif options.count and options.count < len(found):
            picked = set(random.Random(options.seed).sample(range(len(found)), options.count))
            found = [m for at, m in enumerate(found) if at in picked]
        chosen[folder] = found
    if options.list:
        for mutant in (m for folder in folders for m in chosen[folder]):
            print(f"{mutant.id}  {place(mutant)}  {mutant.kind}")
        return []

    copy.choose([mutant for folder in folders for mutant in chosen[folder]])
    tree.say("building")
    pattern = re.compile(options.tests or ".")
    copy.make(targets(copy, pattern))
    runnable = programs.programs_of(copy.build, copy.source, pattern)
    programs.record(runnable, copy.build)
    known = equivalents.read(tree.ROOT)

    counts = []
    for folder in folders:
        count = dict.fromkeys([*STATUS, "made", "wrong"], 0) | {"folder": folder}
        with concurrent.futures.ThreadPoolExecutor(max_workers=options.jobs) as pool:
            for mutant, outcome in pool.map(lambda m: (m, verdict(copy, m, runnable)), chosen[folder]):
                status, why = judged(mutant, outcome, known)
                print(f"{mutant.id}  {place(mutant)}: {why}", flush=True)
                results[mutant.id] = status
                count[status] += 1
                if status != "does not compile":
                    count["made"] += 1
                if "listed as equivalent" in why:
                    count["wrong"] += 1
                tree.replace(last, json.dumps(results, indent=0).encode())
        counts.append(count)
    for mutant in copy.mutants:
        known.reason(mutant)
    for file, line, change in known.stale({mutant.file for mutant in copy.mutants}):
        tree.say(f"{equivalents.LIST}: nothing matches any more: {file}: {line}: {change}")
    return counts


def targets(copy, pattern):
    """The test programs to build, and the programs that they start."""
    listed = subprocess.run(["ninja", "-C", copy.build, "-t", "targets", "all"], check=True,
                            capture_output=True, text=True).stdout
    found = sorted({m[1] for m in re.finditer(r"^(test_\w+): phony", listed, re.MULTILINE)})
    return [t for t in found if pattern.search(t)]


def place(mutant):
    return f"{mutant.file}:{mutant.line}: {mutant.change}"


def verdict(copy, mutant, runnable):
    """The verdict on a mutant, and the test that killed it: ("killed", "SomeTest.name")."""
    if mutant.id in copy.refused:
        return "does not compile", ""
    return programs.attempt(mutant, runnable)


def judged(mutant, outcome, known):
    """The status of a mutant, and what to print."""
    status, killer = outcome
    reason = known.reason(mutant)
    if status == "does not compile":
        return status, status
    if status == "killed":
        listed = ", although it is listed as equivalent" if reason else ""
        return status, f"killed by {killer}{listed}"
    if reason:
        return "equivalent", f"equivalent: {reason}"
    return "alive", "ALIVE" if status == "alive" else "ALIVE: no test reaches it"


def closing(counts):
    if not counts:
        return
    total = {key: sum(c[key] for c in counts) for key in [*STATUS, "made"]} | {"folder": "together"}
    width = max(len(c["folder"]) for c in [*counts, total])
    for count in counts if len(counts) == 1 else [*counts, total]:
        possible = count["made"] - count["equivalent"]
        share = f"{100 * count['killed'] / possible:.1f} %" if possible else "-"
        print(f"{count['folder']:{width}}  made {count['made']}, killed {count['killed']}, "
              f"equivalent {count['equivalent']}, alive {count['alive']}  ({share} killed of those that "
              f"can be; {count['does not compile']} more do not compile)")


if __name__ == "__main__":
    main()
