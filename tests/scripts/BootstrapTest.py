#!/usr/bin/python3
"""Tests scripts/bootstrap with package lists and a package system of its own: which packages it asks for
on releases that have different ones, and what it says."""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

BOOTSTRAP = pathlib.Path(__file__).resolve().parents[2] / "scripts/bootstrap"

# The commands that the script may call besides the package system.
TOOLS = "bash cat dirname env grep id mktemp rm sed sleep sort tr".split()

DPKG_QUERY = """#!/bin/bash
for name in "$@"; do grep -qx -- "$name" "$STATE/installed" && echo "installed $name"; done; exit 1
"""
APT_CACHE = """#!/bin/bash
for name in "${@:2}"; do
  if grep -qx -- "$name" "$STATE/release"; then printf '%s:\\n  Installed: (none)\\n  Candidate: 1.0\\n' "$name"
  elif [[ $name == virtual ]]; then printf '%s:\\n  Installed: (none)\\n  Candidate: (none)\\n' "$name"; fi
done
"""
APT_GET = """#!/bin/bash
echo "$*" >>"$STATE/calls"
if [[ -s $STATE/locked ]]; then
  sed -i 1d "$STATE/locked"
  echo "E: Could not get lock /var/lib/dpkg/lock-frontend. It is held by process 1 (other)" >&2
  exit 100
fi
[[ ! -e $STATE/broken || $* != *" install "* ]] || { echo "E: the disk is on fire" >&2; exit 100; }
"""
SUDO = """#!/bin/bash
echo sudo >>"$STATE/calls"
exec "$@"
"""


class BootstrapTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "scripts/packages").mkdir(parents=True)
        (self.folder / "bin").mkdir()
        shutil.copy(BOOTSTRAP, self.folder / "scripts")
        for tool in TOOLS:
            (self.folder / "bin" / tool).symlink_to(shutil.which(tool))
        self.program("dpkg-query", DPKG_QUERY)
        self.program("apt-cache", APT_CACHE)
        self.program("apt-get", APT_GET)
        if os.geteuid() != 0:
            self.program("sudo", SUDO)
        self.file("scripts/packages/llvm-versions", "16 19\n")
        self.lists(run="cmake  # builds\n\n", test="", check="")
        self.machine(installed="", release="cmake")

    def file(self, name, text):
        (self.folder / name).write_text(text)

    def program(self, name, text):
        self.file("bin/" + name, text)
        (self.folder / "bin" / name).chmod(0o755)

    def lists(self, **lists):
        for name, text in lists.items():
            self.file("scripts/packages/" + name, text)

    def machine(self, installed, release):
        self.file("installed", installed.replace(" ", "\n") + "\n")
        self.file("release", release.replace(" ", "\n") + "\n")

    def run_it(self, *arguments):
        return subprocess.run([self.folder / "scripts/bootstrap", *arguments], text=True, capture_output=True,
                              env={"PATH": str(self.folder / "bin"), "STATE": str(self.folder)}, check=False)

    def calls(self):
        file = self.folder / "calls"
        return [line for line in file.read_text().splitlines() if line != "sudo"] if file.exists() else []

    def installs(self, *arguments):
        """The packages that it requests."""
        done = self.run_it(*arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        words = next((call for call in self.calls() if " install " in call), "").split()
        return sorted(words[words.index("--no-install-recommends") + 1:]) if words else []

    def test_installs_what_is_missing(self):
        self.lists(run="cmake\nninja-build\n")
        self.machine(installed="cmake", release="cmake ninja-build")
        self.assertEqual(self.installs(), ["ninja-build"])

    def test_is_silent_and_calls_nothing_when_nothing_is_missing(self):
        self.machine(installed="cmake", release="")
        done = self.run_it()
        self.assertEqual((done.returncode, done.stdout, done.stderr, self.calls()), (0, "", "", []))

    def test_takes_the_lists_that_are_asked_for(self):
        self.lists(test="xvfb\n", check="shellcheck\n")
        self.machine(installed="", release="cmake xvfb shellcheck")
        self.assertEqual(self.installs("--test"), ["cmake", "xvfb"])

    def test_mutants_need_the_tests_too(self):
        self.lists(test="xvfb\n", mutate="python3-clang\n")
        self.machine(installed="cmake", release="xvfb python3-clang")
        self.assertEqual(self.installs("--mutate"), ["python3-clang", "xvfb"])

    def test_of_alternatives_the_first_that_the_release_has(self):
        self.lists(run="old | new | newest\n")
        self.machine(installed="", release="new newest")
        self.assertEqual(self.installs(), ["new"])

    def test_an_alternative_that_is_installed_is_enough(self):
        self.lists(run="old | new\n")
        self.machine(installed="new", release="old new")
        self.assertEqual(self.installs(), [])

    def test_a_name_that_only_others_speak_of_is_not_available(self):
        self.lists(run="virtual | real\n")
        self.machine(installed="", release="real")
        self.assertEqual(self.installs(), ["real"])

    def test_one_version_of_llvm_for_all_its_packages(self):
        self.lists(test="clang-{llvm}\nlibc++-{llvm}-dev\n")
        self.machine(installed="cmake clang-16", release="clang-16 clang-19 libc++-19-dev")
        self.assertEqual(self.installs("--test"), ["clang-19", "libc++-19-dev"])

    def test_a_version_of_llvm_that_is_installed_stays(self):
        self.lists(test="clang-{llvm}\n")
        self.machine(installed="cmake clang-19", release="clang-16 clang-19")
        self.assertEqual(self.installs("--test"), [])

    def test_names_what_is_optional_and_not_there(self):
        self.lists(run="cmake\noptional ccache: a second build takes as long\n")
        done = self.run_it()
        self.assertEqual(done.returncode, 0)
        self.assertIn("left out, as this release does not have it: ccache: a second build takes as long",
                      done.stdout)

    def test_installs_what_is_optional_and_there(self):
        self.lists(run="optional ccache: a second build takes as long\n")
        self.machine(installed="", release="ccache")
        self.assertEqual(self.installs(), ["ccache"])

    def test_is_silent_about_what_it_left_out_before(self):
        self.lists(run="cmake\noptional ccache: a second build takes as long\n")
        self.machine(installed="cmake", release="cmake")
        done = self.run_it()
        self.assertEqual((done.returncode, done.stdout, done.stderr, self.calls()), (0, "", "", []))

    def test_names_every_package_that_the_release_lacks_and_installs_nothing(self):
        self.lists(run="cmake\nqt7 | qt6\nicu\n")
        done = self.run_it()
        self.assertEqual(done.returncode, 1)
        self.assertIn("no package qt7 or qt6\n", done.stderr)
        self.assertIn("no package icu\n", done.stderr)
        self.assertFalse([call for call in self.calls() if " install " in call])

    def test_waits_for_another_program_that_installs_and_says_so_once(self):
        self.file("locked", "1\n2\n")
        done = self.run_it()
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stdout.count("another program is installing packages: waiting for it"), 1)
        self.assertEqual(len(self.calls()), 4)

    def test_shows_what_apt_said_when_it_fails(self):
        self.file("broken", "")
        done = self.run_it()
        self.assertEqual(done.returncode, 1)
        self.assertIn("the disk is on fire", done.stderr)
        self.assertIn("could not install cmake", done.stderr)

    def without_apt(self, *programs):
        """A machine with these programs, whose pkg-config knows every module."""
        (self.folder / "bin/apt-get").unlink()
        for name in programs:
            self.program(name, "#!/bin/bash\n")

    BUILD_PROGRAMS = ("cmake", "ninja", "g++", "pkg-config", "lrelease6")

    def test_without_apt_it_names_what_is_missing_and_how_other_systems_call_it(self):
        self.without_apt("cmake", "ninja")
        done = self.run_it()
        self.assertEqual(done.returncode, 1)
        for words in ("there is no apt here", "  a compiler for C++20 (g++ 12 or clang 16, or newer)\n", "  ICU\n",
                      "  CLI11\n", "  Qt 6.4\n", "dnf install", "zypper install", "pacman -S"):
            self.assertIn(words, done.stderr)
        self.assertNotIn("  Ninja\n", done.stderr)

    def test_without_apt_each_program_is_needed(self):
        self.without_apt(*self.BUILD_PROGRAMS)
        for name in self.BUILD_PROGRAMS[:-1]:  # this machine may have lrelease where Qt puts it
            with self.subTest(name):
                (self.folder / "bin" / name).rename(self.folder / "away")
                self.assertEqual(self.run_it().returncode, 1)
                (self.folder / "away").rename(self.folder / "bin" / name)

    def test_without_apt_it_is_content_when_all_is_there(self):
        self.without_apt(*self.BUILD_PROGRAMS)
        done = self.run_it()
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_without_apt_the_tests_need_more(self):
        self.without_apt(*self.BUILD_PROGRAMS)
        done = self.run_it("--test")
        self.assertEqual(done.returncode, 1)
        for words in ("  Xvfb\n", "  matchbox-window-manager\n", "  pyatspi\n"):
            self.assertIn(words, done.stderr)

    def test_refuses_what_it_does_not_know(self):
        done = self.run_it("--everything")
        self.assertEqual(done.returncode, 1)
        self.assertIn("unknown argument --everything", done.stderr)


if __name__ == "__main__":
    unittest.main(argv=sys.argv)
