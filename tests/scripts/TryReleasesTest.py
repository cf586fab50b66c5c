"""scripts/try-releases: the table of the releases tried, with scripts/fresh-machine-trial replaced."""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"

TRIAL = """#!/bin/bash
echo "$*" >>asked
case $2 in
  broken) echo "scripts/build: cannot build" >&2; exit 1 ;;
  red) echo "scripts/test: 12 tests in 1 build(s): 9 passed, 2 failed, 1 skipped by themselves; built"; exit 8 ;;
  *) echo "scripts/test: 10 tests in 1 build(s): 9 passed, 0 failed, 1 skipped by themselves; built" ;;
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
        """The words of each line of the table, without the seconds."""
        lines = [line.split() for line in run.stdout.splitlines() if not line.startswith("scripts/")]
        return [[line[0], *line[2:]] for line in lines[1:]]

    def asked(self):
        return (self.root / "asked").read_text().splitlines()

    def test_without_names_the_three_supported_releases_are_tried_with_the_quick_tests(self):
        run = self.run_with()
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(self.asked(), [f"--suite {suite} -- scripts/test --quick"
                                        for suite in ("bookworm", "trixie", "testing")])
        self.assertEqual(self.rows(run), [[suite, "10", "9", "0", "1", "fine"]
                                          for suite in ("bookworm", "trixie", "testing")])

    def test_a_release_that_fails_is_in_the_table_and_the_next_is_tried(self):
        run = self.run_with("--working-tree", "red", "broken", "trixie", "--", "scripts/test")
        self.assertEqual(run.returncode, 1)
        self.assertEqual(self.asked()[0], "--suite red --working-tree -- scripts/test")
        self.assertEqual(self.rows(run), [
            ["red", "12", "9", "2", "1", "failed:", "build/releases/red.log"],
            ["broken", "-", "-", "-", "-", "failed:", "build/releases/broken.log"],
            ["trixie", "10", "9", "0", "1", "fine"]])
        self.assertIn("cannot build", (self.root / "build/releases/broken.log").read_text())

    def test_an_unknown_option_is_named(self):
        run = self.run_with("--fast")
        self.assertEqual(run.returncode, 1)
        self.assertIn("unknown argument --fast", run.stderr)
        self.assertFalse((self.root / "asked").exists())


if __name__ == "__main__":
    unittest.main()
