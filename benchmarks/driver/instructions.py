"""Instructions instead of time, by callgrind: the same on a busy machine as on an idle one."""
import re

from candidates import BIN, OUT, output_of

COUNTED = {"scan": "countedScan", "equality": "countedEquality", "resolve": "countedResolve"}

# The counts when they were last recorded, with g++ 12.2 at -O2 on x86-64. A count is the same in every
# run, so a difference beyond TOLERANCE comes from a change of the code or of the compiler: find the
# cause, and then record the new count here.
RECORDED = {"scan": 23.016, "equality": 292.391, "resolve": 2853.2}
TOLERANCE = 0.02


def valgrind(command, file, toggle):
    return output_of(["valgrind", "--tool=callgrind", f"--callgrind-out-file={file}",
                      "--compress-strings=no", "--compress-pos=no", f"--toggle-collect={toggle}",
                      *command],
                     # Bound late, a call into Qt would look like one into the dynamic linker.
                     variables={"LD_BIND_NOW": "1"})


def per_element(name):
    """Instructions of the model's counted work, per element."""
    file = OUT / f"callgrind.{name}"
    elements = int(valgrind([BIN / "vemra-bench-model", "--count", name], file,
                            f"vemra::bench::{COUNTED[name]}*"))
    total = re.search(r"^(?:summary|totals): (\d+)", file.read_text(), re.MULTILINE)
    return int(total[1]) / elements


def own_share(candidate, size):
    """The share of the program's own code, and of its calls outside of Qt, in warm first frames.

    The program's own code is what its executable holds: the library is linked into it, Qt is not.
    """
    file = OUT / "callgrind.first-frame"
    valgrind([BIN / "vemra-bench-screen", candidate, "profile", str(size)], file,
             "vemra::bench::Measurement::warmFrame*")
    own = total = 0
    function = None
    here = called = None  # the objects that cost is counted for, and that a call goes into
    awaiting = False
    with open(file, encoding="utf-8") as lines:
        for line in lines:
            if line.startswith("ob="):
                here = line[3:].strip()
            elif line.startswith("cob="):
                called = line[4:].strip()
            elif line.startswith("fn="):
                function = line[3:].strip()
                called = None
            elif line.startswith("calls="):
                awaiting = True
            elif line[0].isdigit() or line[0] in "+-*":
                cost = int(line.split()[1]) if len(line.split()) > 1 else 0
                if awaiting:
                    awaiting = False
                    into = called or here
                    called = None
                    if function != "(below main)" and is_own(here) and not (is_own(into) or is_qt(into)):
                        own += cost
                    continue
                total += cost
                if is_own(here):
                    own += cost
    return own / total


def is_own(name):
    return name is not None and name.endswith("/vemra-bench-screen")


def is_qt(name):
    return name is not None and ("libQt6" in name or "/qt6/" in name)
