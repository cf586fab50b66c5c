"""scripts/try-releases: the table of the releases tried, with scripts/fresh-machine-trial replaced."""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"

# Fails in the release "broken", has a red test in "red", and leaves the files that the steps take from a machine.
TRIAL = """#!/bin/bash
suite=$2 machine=$4
echo "$suite ${*:5}" >>asked
case "$suite $*" in
  broken*) echo "scripts/build: cannot build" >&2; echo "scripts/fresh-machine-trial: ended with 1 after 3 s"; exit 1 ;;
  *scripts/run) echo "scripts/fresh-machine-trial: fine after 5 s"; mkdir -p $machine/src/vemra/build/run; echo picture >$machine/src/vemra/build/run/screen.png ;;
  *scripts/package*) mkdir -p $machine/src/vemra/build/package
    for name in libvemra vemra; do head -c 5000 /dev/zero >$machine/src/vemra/build/package/$name.deb; done ;;
  *scripts/try-packages*) [[ ! -e $machine/src ]] ;;
  red*) echo "scripts/fresh-machine-trial: ended with 8 after 9 s"; echo "scripts/test: 12 tests in 1 build(s): 9 passed, 2 failed, 1 skipped by themselves; built"; exit 8 ;;
  *scripts/test*) echo "scripts/fresh-machine-trial: fine after 7 s"; echo "scripts/test: 10 tests in 1 build(s): 9 passed, 0 failed, 1 skipped by themselves; built" ;;
esac
"""


class TryReleases(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = pathlib.Path(self.folder.name)
        (self.root / "scripts").mkdir()
        for name in ("try-releases", "common.sh"):
            shutil.copy(SCRIPTS / name, self.root / "scripts" / name)
        trial = self.root / "scripts/fresh-machine-trial"
        trial.write_text(TRIAL)
        trial.chmod(0o755)

    def run_with(self, *arguments):
        return subprocess.run([self.root / "scripts/try-releases", *arguments], cwd=self.root,
                              capture_output=True, text=True, check=False)

    def rows(self, run):
        """The words of each line of the table; of the seconds only whether there are some."""
        lines = [line.split() for line in run.stdout.splitlines() if not line.startswith("scripts/")]
        return [[line[0], *("-" if word == "-" else "s" for word in line[1:3]), *line[3:]] for line in lines[1:]]

    def asked(self):
        return (self.root / "asked").read_text().splitlines()

    def test_without_names_every_step_is_tried_in_the_three_supported_releases(self):
        run = self.run_with()
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(self.asked(), [
            f"{suite} {step}" for suite in ("bookworm", "trixie", "testing")
            for step in ("-- scripts/run", "-- scripts/test", "-- scripts/package --check",
                         f"--with build/releases/{suite}-packages -- scripts/try-packages /src/with")])
        self.assertEqual(self.rows(run), [[suite, "s", "s", "10", "9", "0", "1", "4+4", "fine"]
                                          for suite in ("bookworm", "trixie", "testing")])
        self.assertEqual((self.root / "build/releases/trixie.png").read_text(), "picture\n")

    def test_quick_tests_and_single_steps(self):
        run = self.run_with("--quick", "--only", "tests", "trixie")
        self.assertEqual(self.asked(), ["trixie -- scripts/test --quick"])
        self.assertEqual(self.rows(run), [["trixie", "-", "s", "10", "9", "0", "1", "-", "fine"]])

    def test_the_run_of_a_new_machine_has_no_cache_of_the_compilers(self):
        run = self.run_with("--cache", "kept", "trixie")
        self.assertEqual(run.returncode, 0, run.stderr)
        cache = f"--cache {self.root.resolve()}/kept/trixie"
        self.assertEqual(self.asked(), [
            "trixie -- scripts/run", f"trixie {cache} -- scripts/test", f"trixie {cache} -- scripts/package --check",
            "trixie --with build/releases/trixie-packages -- scripts/try-packages /src/with"])

    def test_a_release_that_fails_is_in_the_table_and_the_next_is_tried(self):
        run = self.run_with("--working-tree", "red", "broken", "trixie", "--", "scripts/test")
        self.assertEqual(run.returncode, 1)
        self.assertEqual(self.asked()[0], "red --working-tree -- scripts/test")
        self.assertEqual(self.rows(run), [
            ["red", "-", "s", "12", "9", "2", "1", "-", "failed", "(command):", "build/releases/red.log"],
            ["broken", "-", "s", "-", "-", "-", "-", "-", "failed", "(command):", "build/releases/broken.log"],
            ["trixie", "-", "s", "10", "9", "0", "1", "-", "fine"]])
        self.assertIn("cannot build", (self.root / "build/releases/broken.log").read_text())

    def test_after_a_step_that_failed_none_follows_in_that_release(self):
        run = self.run_with("broken", "trixie")
        self.assertEqual(run.returncode, 1)
        self.assertEqual([line for line in self.asked() if line.startswith("broken")], ["broken -- scripts/run"])
        self.assertIn("trixie -- scripts/test", self.asked())

    def test_an_unknown_option_is_named(self):
        run = self.run_with("--fast")
        self.assertEqual(run.returncode, 1)
        self.assertIn("unknown argument --fast", run.stderr)
        self.assertFalse((self.root / "asked").exists())


if __name__ == "__main__":
    unittest.main()
