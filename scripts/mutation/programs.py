"""The test programs of the build: which tests reach a mutant, and whether they fail with it."""
import collections
import contextlib
import dataclasses
import json
import os
import pathlib
import resource
import signal
import subprocess
import tempfile

from tree import replace, say

MEMORY = 4 << 30     # a mutant that only allocates ends here
QUICK = 3.0          # seconds of tests that are tried first
LONGEST_FILTER = 100_000


@dataclasses.dataclass
class Program:
    """A test program. `reached` has the tests that reach a mutant; the test "" is what runs outside tests."""
    path: pathlib.Path
    environment: dict
    folder: str
    seconds: dict = dataclasses.field(default_factory=dict)
    failing: list = dataclasses.field(default_factory=list)
    reached: dict = dataclasses.field(default_factory=dict)

    @property
    def name(self):
        return self.path.name


def programs_of(build, source, pattern):
    """The GoogleTest programs that ctest knows, with the environment that it gives them."""
    listed = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], check=True,
                            capture_output=True, text=True, env=environment({})).stdout
    document, found = json.loads(listed), {}
    for test in document["tests"]:
        command = test.get("command", [])
        if len(command) < 2 or not command[1].startswith("--gtest_filter="):
            continue
        path = pathlib.Path(command[0])
        if path in found or not pattern.search(path.name):
            continue
        properties = {p["name"]: p["value"] for p in test.get("properties", [])}
        pairs = dict(p.split("=", 1) for p in properties.get("ENVIRONMENT", []))
        folder = os.path.relpath(properties["WORKING_DIRECTORY"], build).removeprefix("tests/")
        found[path] = Program(path, pairs, folder)
    return list(found.values())


def environment(more):
    kept = {k: v for k, v in os.environ.items()
            if not k.startswith(("LC_", "LANG", "VEMRA_", "GTEST_")) and k != "TZ"}
    return kept | {"LC_ALL": "C.UTF-8", "TZ": "UTC", "QT_QPA_PLATFORM": "offscreen",
                   "MALLOC_PERTURB_": "165"} | more


def confined(folder, program, more):
    """The environment of a run: a mutant may ignore where a test told it to write, and must then not
    find the user's own files."""
    own = dict.fromkeys(("HOME", "XDG_DATA_HOME", "TMPDIR"), folder)
    return environment(program.environment | own | more)


def record(programs, build):
    """Runs every program once without a mutant: which tests reach which mutants, and how long they take.

    A program that has not been linked again since is not run again.
    """
    for program in programs:
        memory = build / "reached" / (program.name + ".json")
        helpers = sorted((build / "bin").glob("*")) if (build / "bin").exists() else []
        stamps = [f.stat().st_mtime_ns for f in (program.path, *helpers)]
        known = json.loads(memory.read_text()) if memory.exists() else {}
        if known.get("stamps") != stamps:
            say(f"running {program.name} without a mutant")
            known = {"stamps": stamps} | run_once(program)
            replace(memory, json.dumps(known).encode())
        program.seconds, program.failing, program.reached = (
            known["seconds"], known["failing"], known["reached"])
        if program.failing:
            say(f"{program.name}: {len(program.failing)} tests fail without a mutant and are left out: "
                + " ".join(program.failing[:8]))


def run_once(program):
    with scratch() as folder:
        reached, results = f"{folder}/reached", f"{folder}/results.json"
        subprocess.run([program.path, f"--gtest_output=json:{results}", "--gtest_brief=1"], cwd=folder,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL,
                       env=confined(folder, program, {"VEMRA_MUTANTS_REACHED": reached}))
        if not os.path.exists(results):
            raise SystemExit(f"scripts/mutate: {program.name} does not come to its end without a mutant")
        seconds, failing = {}, []
        for suite in json.loads(pathlib.Path(results).read_text())["testsuites"]:
            for test in suite["testsuite"]:
                name = f"{suite['name']}.{test['name']}"
                seconds[name] = float(test.get("time", "0s").rstrip("s"))
                if test.get("failures"):
                    failing.append(name)
        by_mutant = collections.defaultdict(set)
        if os.path.exists(reached):
            for line in pathlib.Path(reached).read_text().splitlines():
                number, _, test = line.partition(" ")
                by_mutant[number].add(test)
    return {"seconds": seconds, "failing": failing, "reached": {m: sorted(t) for m, t in by_mutant.items()}}


def attempt(mutant, programs):
    """Runs the tests that reach a mutant until one fails.

    Returns ("killed", what killed it), ("alive", "") where all tests pass, or ("unreached", "").
    """
    reaching = [p for p in programs if mutant.id in p.reached]
    if not reaching:
        return "unreached", ""
    # The tests of the mutant's own folder first, then the quicker program first.
    reaching.sort(key=lambda p: (distance(mutant.file, p.folder), sum(p.seconds.values())))
    later = []
    for program in reaching:
        tests = [t for t in program.reached[mutant.id] if t in program.seconds and t not in program.failing]
        tests.sort(key=lambda t: program.seconds[t])
        outside = "" in program.reached[mutant.id]
        quick, total = [], 0.0
        for test in tests:
            total += program.seconds[test]
            if total > QUICK and quick:
                break
            quick.append(test)
        slow = tests[len(quick):]
        if slow or outside or not tests:
            later.append((program, None if outside or not tests else slow))
        if quick:
            killer = run_tests(program, mutant, quick)
            if killer:
                return "killed", killer
    for program, tests in later:
        killer = run_tests(program, mutant, tests)
        if killer:
            return "killed", killer
    return "alive", ""


@contextlib.contextmanager
def scratch():
    """A folder for one run. Other users may enter it, as they may /tmp: some tests change to another user."""
    with tempfile.TemporaryDirectory(prefix="vemra-mutate-", ignore_cleanup_errors=True) as folder:
        os.chmod(folder, 0o755)
        yield folder


def distance(file, folder):
    """How far the tests in tests/FOLDER are from a source, in folders."""
    own, theirs = os.path.dirname(file).split("/"), folder.split("/")
    common = len(os.path.commonprefix([own, theirs]))
    return len(own) + len(theirs) - 2 * common


def run_tests(program, mutant, tests):
    """Runs tests of a program (None: all) with a mutant; returns the test that killed it, or None."""
    seconds = sum(program.seconds[t] for t in (tests or program.seconds))
    chosen = ":".join(tests) if tests else "*"
    if len(chosen) > LONGEST_FILTER:
        chosen = "*"
    if program.failing and chosen == "*":
        chosen = "*-" + ":".join(program.failing)
    processor = int(10 + 5 * seconds)
    with scratch() as folder:
        process = subprocess.Popen(
            [program.path, f"--gtest_filter={chosen}", "--gtest_fail_fast", "--gtest_brief=1"], cwd=folder,
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
            errors="replace", start_new_session=True, preexec_fn=lambda: limit(processor),
            env=confined(folder, program, {"VEMRA_MUTANT": mutant.id}))
        try:
            # Limit the processor time, because the machine may be busy with other programs.
            output, _ = process.communicate(timeout=60 + 30 * seconds)
        except subprocess.TimeoutExpired:
            end(process)
            return f"{program.name}, which does not end"
        finally:
            end(process)
    if process.returncode == 0:
        return None
    failed = [line.split("]", 1)[1].split(",")[0].split(" (")[0].strip() for line in output.splitlines()
              if line.startswith("[  FAILED  ]") and "." in line]
    if failed:
        return failed[0]
    if process.returncode == -signal.SIGXCPU:
        return f"{program.name}, which does not end"
    return f"{program.name}, which ends with {describe(process.returncode)}"


def describe(code):
    return signal.Signals(-code).name if code < 0 else f"exit code {code}"


def limit(seconds):
    resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds + 5))
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    os.nice(5)


def end(process):
    """Ends what a test program started and left running."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
