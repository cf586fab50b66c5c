"""Which mutants a compiler's messages are about."""
import os
import re

MESSAGE = re.compile(r"^(?P<file>[^\s:][^:\n]*):(?P<line>\d+):\d+: +"
                     r"(?P<kind>error|fatal error|required from)")


def blamed(output, build, source, written):
    """The mutants to leave out so that the sources compile, each with a message about it.

    - output: the compiler's, with paths as seen from the folder `build`
    - written: for each source, by its path in the folder `source`, what schema.write() made of it
    """
    found, broken, trail = {}, {}, []
    for line in output.splitlines():
        match = MESSAGE.match(line)
        if not match:
            continue
        name = os.path.relpath(os.path.join(build, match["file"]), source)
        here = written[name].mutants_at(int(match["line"])) if name in written else []
        if match["kind"] == "required from":  # comes before the message about the template
            trail.append(here)
            continue
        here = here or next((mutants for mutants in trail if mutants), [])
        trail = []
        for mutant in here:
            found.setdefault(mutant, line.strip())
        if not here and name in written:
            broken[name] = line.strip()
    if not found:  # a source is broken as a whole
        for name, message in broken.items():
            found.update({mutant: message for _, _, mutants in written[name].regions for mutant in mutants})
    return found
