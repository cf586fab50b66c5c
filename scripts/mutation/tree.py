"""A copy of the repository in which the sources hold their mutants, and its build."""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import shlex
import shutil
import subprocess
import sys

import blame
import mutants as finder
import schema

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ["VemraPlatform", "VemraGoalEngine", "VemraGoalSurface", "VemraTesting", "VemraRecording", "VemraQt", "apps"]
QT = ("VemraQt/", "apps/desk/window/", "apps/toolkit/", "apps/inspect/picture/")
WITHOUT_QT = ("apps/desk/windowless/", "apps/inspect/pictureless/")


class Tree:
    """One of four copies below build/mutate: without Qt or with it, and with mutants in the .cpp files or
    in the headers. Mutants in headers are compiled again into every test that includes them; tests of
    the other kind come out of ccache as they were compiled for the release build."""

    def __init__(self, with_qt, headers, below=ROOT / "build/mutate"):
        self.with_qt, self.headers = with_qt, headers
        base = below / (("qt" if with_qt else "plain") + ("-headers" if headers else ""))
        # The build is where the presets put it, so that ccache sees the paths that it knows.
        self.source, self.build = base, base / "build" / "release"
        self.memory = below / "mutants.json"              # what libclang found, by the text of the file
        self.refused_file = base / "refused.json"         # the mutants that do not compile
        self.refused = json.loads(self.refused_file.read_text()) if self.refused_file.exists() else {}
        self.compiled_file = base / "compiled.json"       # the mutants that the sources hold
        self.compiled = (
            set(json.loads(self.compiled_file.read_text())) if self.compiled_file.exists() else set())
        self.mutants, self.elsewhere, self.written = [], [], {}

    def ours(self, name):
        """Whether this copy can have mutants of a file."""
        return (name.endswith(".hpp" if self.headers else ".cpp")
                and name.startswith(tuple(f + "/" for f in FOLDERS))
                and name.startswith(QT) == self.with_qt and not name.startswith(WITHOUT_QT))

    # The copy

    def copy(self):
        """Brings the copy up to date; a file that has not changed keeps its time stamp."""
        listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "-z"],
                                cwd=ROOT, check=True, capture_output=True, text=True).stdout
        wanted = {name for name in listed.split("\0") if name and (ROOT / name).is_file()}
        self.sources = sorted(name for name in wanted if self.ours(name))
        for name in sorted(wanted - set(self.sources)):
            replace(self.source / name, (ROOT / name).read_bytes())
            shutil.copymode(ROOT / name, self.source / name)
        for top in {name.split("/")[0] for name in wanted}:
            for path in (self.source / top).rglob("*"):
                if path.is_file() and str(path.relative_to(self.source)) not in wanted:
                    path.unlink()

    def configure(self):
        if not (self.source / "mutated.cmake").exists():
            self.write_options([])
        if (self.build / "build.ninja").exists():
            return
        for name in self.sources:  # CMake looks for files
            if not (self.source / name).exists():
                replace(self.source / name, (ROOT / name).read_bytes())
        run(["cmake", "--preset", "release", f"-DVEMRA_WITH_QT={'ON' if self.with_qt else 'OFF'}",
             "-DVEMRA_TEST_INSTALL=OFF", "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST",
             "-DCMAKE_PROJECT_VemraGoalSurface_INCLUDE=scripts/mutation/mutation.cmake"],
            self.build / "configure.log", self.source)

    # The mutants

    def find(self, folders):
        """Finds the mutants of the sources in the folders; what was read before is not read again.

        Those of other folders stay in the sources, switched off: without them they would be compiled again.
        """
        memory = json.loads(self.memory.read_text()) if self.memory.exists() else {}
        tool = "".join((ROOT / "scripts/mutation" / n).read_text() for n in ("mutants.py", "rules.py"))
        arguments = self.arguments()
        jobs, elsewhere = [], []
        for name in self.sources:
            key = hashlib.sha256((tool + finder.read(ROOT / name)).encode()).hexdigest()
            is_known = memory.get(name, {}).get("key") == key
            if name.startswith(folders) and not is_known:
                jobs.append((name, key, arguments_of(arguments, name)))
            elif is_known and not name.startswith(folders):
                elsewhere.append(name)
        if jobs:
            say(f"reading {len(jobs)} sources")
        try:
            with concurrent.futures.ProcessPoolExecutor(max_workers=2) as pool:
                for name, key, found in pool.map(read_one, jobs):
                    memory[name] = {"key": key, "mutants": found}
        finally:
            replace(self.memory, json.dumps(memory).encode())
        self.mutants = [finder.Mutant(**m) for name in self.sources if name.startswith(folders)
                        for m in memory[name]["mutants"]]
        self.elsewhere = [finder.Mutant(**m) for name in elsewhere for m in memory[name]["mutants"]]

    def arguments(self):
        """The compiler's arguments for each .cpp file, without those of precompiled headers."""
        run(["cmake", self.build], self.build / "configure.log", self.source)
        entries = json.loads((self.build / "compile_commands.json").read_text())
        found = {}
        for entry in entries:
            words = shlex.split(entry["command"])
            kept = [w for before, w in zip(["", *words], words)
                    if before == "-isystem" or w.startswith(("-I", "-D", "-std", "-isystem"))]
            name = str(pathlib.Path(entry["file"]).resolve())
            found[name.removeprefix(str(self.source) + "/")] = [
                self.where_it_is_read(w) for w in kept] + [f"-I{ROOT}"]
        return found

    def where_it_is_read(self, argument):
        """Headers are read in the repository, not in the copy, which holds mutants; only generated ones
        are in the copy's build alone."""
        return argument if str(self.build) in argument else argument.replace(str(self.source), str(ROOT))

    # The build

    def choose(self, chosen):
        """Compiles these mutants, and keeps those that are compiled already: leaving one out would compile its
        source again. Other mutants of a sample's folder are not compiled."""
        self.compiled |= {mutant.id for mutant in chosen}
        replace(self.compiled_file, json.dumps(sorted(self.compiled), indent=0).encode())

    def write(self):
        by_file = {}
        for mutant in self.mutants + self.elsewhere:
            if mutant.id in self.compiled and mutant.id not in self.refused:
                by_file.setdefault(mutant.file, []).append(mutant)
        self.write_options(sorted(by_file))
        for name in self.sources:
            text = finder.read(ROOT / name)
            if name in by_file:
                self.written[name] = schema.write(text, by_file[name])
                text = self.written[name].text()
            replace(self.source / name, text.encode("latin-1"))

    def write_options(self, mutated):
        """Tells mutation.cmake what may have mutants: those of a header are wherever it is included, and
        without Qt every source is compiled so quickly that none is worth compiling twice."""
        listed = mutated if self.with_qt and not self.headers else ["everything"]
        text = "set(VEMRA_MUTATED\n" + "".join(f"  {name}\n" for name in listed) + ")\n"
        replace(self.source / "mutated.cmake", text.encode())

    def make(self, targets):
        """Builds; a mutant that does not compile is left out, and the rest is built again."""
        while True:
            self.write()
            done = subprocess.run(["nice", "ninja", "-C", self.build, "-k", "0", *targets],
                                  capture_output=True, text=True, errors="replace")
            if done.returncode == 0:
                return
            blamed = blame.blamed(done.stdout, self.build, self.source, self.written)
            if not blamed:
                sys.stderr.write(done.stdout[-6000:] + done.stderr[-2000:])
                raise SystemExit("scripts/mutate: the copy cannot be built, and no mutant is to blame")
            self.refused.update(blamed)
            replace(self.refused_file, json.dumps(self.refused, indent=0).encode())
            say(f"{len(blamed)} mutants do not compile; building without them")


def read_one(job):
    name, key, arguments = job
    found = finder.find(name, str(ROOT / name), arguments)
    return name, key, [vars(m) for m in found]


def arguments_of(arguments, name):
    """Those of the file itself, or for a header those of a source in the nearest folder."""
    if name in arguments:
        return arguments[name]
    folder = os.path.dirname(name)
    while folder:
        near = [a for n, a in arguments.items() if n.startswith(folder + "/")]
        if near:
            return near[0] + ["-xc++"]
        folder = os.path.dirname(folder)
    raise SystemExit(f"scripts/mutate: nothing near {name} is compiled")


def replace(path, content):
    """Writes a file, unless it has that content already."""
    if path.exists() and path.read_bytes() == content:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content)


def run(command, log, folder):
    log.parent.mkdir(parents=True, exist_ok=True)
    with open(log, "w") as output:
        if subprocess.run([str(c) for c in command], cwd=folder, stdout=output, stderr=output).returncode:
            sys.stderr.write(log.read_text())
            raise SystemExit(f"scripts/mutate: {command[0]} failed; its output is in {log}")


def say(text):
    print(f"scripts/mutate: {text}", flush=True)
