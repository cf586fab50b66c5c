"""Tries to make a store lose acknowledged outcomes; scripts/torture describes how to call it."""
import argparse
import importlib
import pathlib
import random
import resource
import sys
import time

from stand import Failure, Stand

NAMES = ("kill", "faults", "memory", "disk", "power", "processes", "replaced", "rows", "damage")
ROOT = pathlib.Path(__file__).resolve().parents[3]
SHOWN = 5  # failures that are printed in full


def torture(name, stand, options):
    """One kind of torture; the number of its failures."""
    module = importlib.import_module(name)
    started = time.monotonic()
    processor = time.process_time() + children()
    cases = module.cases(stand)
    order = list(range(len(cases)))
    random.Random(f"{name} {options.seed}").shuffle(order)
    runs = options.runs or (module.QUICK if options.quick else len(cases))
    chosen = [options.case] if options.case is not None else [
        order[i % len(order)] for i in range(runs)]
    failures = 0
    for number, index in enumerate(chosen):
        seed = f"{name} {options.seed} {index} {number // len(order)}"
        try:
            module.run(stand, random.Random(seed), cases[index])
        except Failure as failure:
            failures += 1
            if failures <= SHOWN:
                print(f"{name}: case {index} {cases[index]}: {failure}\n"
                      f"  scripts/torture {name} --seed {options.seed} --case {index}", flush=True)
    print(f"{name}: {len(chosen)} runs of {len(cases)} cases in {time.monotonic() - started:.1f} s "
          f"({time.process_time() + children() - processor:.1f} s of processor), "
          f"{failures} failures", flush=True)
    return failures


def children():
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("names", nargs="*", choices=[*NAMES, []], metavar="NAME")
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--runs", type=int)
    parser.add_argument("--case", type=int)
    parser.add_argument("--programs", type=pathlib.Path, default=ROOT / "build/release")
    options = parser.parse_args()
    stand = Stand(options.programs, options.quick)
    try:
        failures = sum(torture(name, stand, options) for name in options.names or NAMES)
    finally:
        stand.close()
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
