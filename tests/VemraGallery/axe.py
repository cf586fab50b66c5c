"""Exports the gallery's book and lets axe-core, a checker for the accessibility of web pages, look for violations.

    axe.py VEMRA-GALLERY

axe-core is test data that npm fetches into a temporary folder. Exit code 77 where there is no Chromium, no npm, or npm
cannot fetch it: then nothing was tested.
"""
import pathlib
import shutil
import subprocess
import tarfile
import tempfile

import book

VERSION = "4.14.1"
RUN = """axe.run(document, {resultTypes: ["violations", "incomplete"]}).then((results) => ({
  passes: results.passes.length,
  problems: [...results.violations, ...results.incomplete].map((rule) =>
    rule.id + ", " + rule.help + ": " + rule.nodes.slice(0, 3).map((node) => node.html.slice(0, 200)).join(" | ")),
}))"""


def checker():
    """The text of axe-core."""
    if shutil.which("npm") is None:
        book.skip("there is no npm, which fetches axe-core: the book was not checked")
    with tempfile.TemporaryDirectory() as folder:
        command = ["npm", "pack", f"axe-core@{VERSION}", "--silent", "--prefer-offline", "--fetch-retries=0"]
        try:
            subprocess.run(command, cwd=folder, check=True, timeout=60, capture_output=True)
        except (subprocess.SubprocessError, OSError) as error:
            book.skip(f"npm cannot fetch axe-core ({error}): the book was not checked")
        with tarfile.open(next(pathlib.Path(folder).glob("*.tgz"))) as archive:
            return archive.extractfile("package/axe.min.js").read().decode()


def main():
    program = checker()
    wrong = []
    with book.opened() as (browser, page):
        for width, system in book.WINDOWS:
            browser.open(page, width, **system)
            browser.ask(program + "; 0")
            for state, act in (("", "0"),
                               ("unfolded", "document.querySelectorAll('details').forEach((each) => each.open = true)")):
                browser.ask(act)
                report = browser.ask(RUN)
                print(width, system, state, report)
                if report["passes"] < 20:
                    wrong.append(f"only {report['passes']} rules were checked")
                wrong += [f"at {width} pixels, {system} {state}: {problem}" for problem in report["problems"]]
    book.end(wrong)


if __name__ == "__main__":
    main()
