"""What the tests of the gallery's book in a browser share."""
import contextlib
import pathlib
import subprocess
import sys
import tempfile

import chromium

SKIPPED = 77
# The windows in which a reader may open the book: their width and the system's colours.
WINDOWS = [(width, system) for width in (1400, 320)
           for system in ({"colours": "light"}, {"colours": "dark"}, {"contrast": "more"})]


def skip(why):
    print(why)
    sys.exit(SKIPPED)


@contextlib.contextmanager
def opened():
    """Exports the book of the program that the command line names: a browser, and its page."""
    if chromium.find() is None:
        skip("there is no Chromium: the book was not read in a browser")
    with tempfile.TemporaryDirectory() as folder:
        book = pathlib.Path(folder) / "book"
        subprocess.run([sys.argv[1], "--export", book], check=True, stderr=subprocess.DEVNULL)
        with chromium.Chromium(pathlib.Path(folder) / "profile") as browser:
            yield browser, book / "index.html"


def end(wrong):
    if wrong:
        sys.exit("\n".join(wrong))
