"""The list of mutants that no test can kill: tests/mutants/equivalent.txt."""
import pathlib

LIST = "tests/mutants/equivalent.txt"


class Equivalents:
    """Entries of four lines or more, with a blank line between them:

        the file
          the line that is changed, without its indentation
          the change, as scripts/mutate prints it; " (2)" behind it: the second of those in the file
          that read the same, on this line or on another one of the same text
          why no test can see it, in as many lines as it takes

    Lines that begin with # are comments.
    """

    def __init__(self, path):
        self.reasons, self.met = {}, set()
        if not path.exists():
            return
        entry = []
        for number, line in enumerate([*path.read_text().splitlines(), ""], 1):
            if line.startswith("#"):
                continue
            if line.strip():
                entry.append(line.strip())
            elif entry:
                if len(entry) < 4:
                    raise SystemExit(f"scripts/mutate: {path}:{number}: an entry has four lines: "
                                     "the file, the line, the change and the reason")
                self.reasons[tuple(entry[:3])] = " ".join(entry[3:])
                entry = []

    def reason(self, mutant):
        """Why a mutant is equivalent, or None."""
        key = (mutant.file, mutant.source, mutant.change)
        self.met.add(key)
        return self.reasons.get(key)

    def stale(self, files):
        """Entries about one of the files that no mutant matches any more."""
        return [key for key in self.reasons if key[0] in files and key not in self.met]


def read(root):
    return Equivalents(pathlib.Path(root) / LIST)
