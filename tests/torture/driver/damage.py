"""damage: bytes changed, pages lost or swapped, in the store and in the log beside it."""
import shutil

from hostile import copy_of_sample, use
from stand import require

QUICK = 400
KINDS = ("bytes", "header", "cut", "swapped", "copied", "zeros", "log", "journal")
PAGE = 4096


def cases(stand):
    return [(kind, number) for kind in KINDS for number in range(250)]


def run(stand, random, case):
    kind, _ = case
    if kind == "log":
        shutil.copytree(stand.once("with log", lambda: with_log(stand)), stand.fresh(),
                        dirs_exist_ok=True)
    else:
        copy_of_sample(stand)
    file = stand.folder / ("goals.sqlite-wal" if kind == "log" else "goals.sqlite")
    data = bytearray(file.read_bytes())
    if kind == "journal":
        (stand.folder / "goals.sqlite-journal").write_bytes(journal(data, random))
    else:
        damage(data, kind, random)
        file.write_bytes(data)
    use(stand, random)


def with_log(stand):
    """The sample as a killed client leaves it: with a log, and without the readers' shared memory."""
    copy_of_sample(stand)
    process = stand.start("talk")
    for line in (f"open\t{stand.store}", *["record\tg1\tin the log"] * 5):
        process.stdin.write(line + "\n")
        process.stdin.flush()
        require(process.stdout.readline().startswith("ok"), "the sample cannot be made")
    process.kill()
    stand.finish(process)
    (stand.folder / "goals.sqlite-shm").unlink()
    ready = stand.root / "log"
    shutil.copytree(stand.folder, ready)
    return ready


def damage(data, kind, random):
    pages = max(1, len(data) // PAGE)
    one, other = (random.randrange(pages) * PAGE for _ in range(2))
    if kind in ("bytes", "log"):
        for _ in range(random.choice((1, 3, 30, 300))):
            data[random.randrange(len(data))] = random.randrange(256)
    elif kind == "header":  # of the file, or of a page: where every byte has a meaning
        start = one if random.random() < 0.5 else 0
        for _ in range(random.choice((1, 2, 8))):
            data[start + random.randrange(100)] = random.choice((0, 1, 255, random.randrange(256)))
    elif kind == "cut":
        del data[random.choice((random.randrange(len(data)), one)):]
    elif kind == "swapped":
        data[one:one + PAGE], data[other:other + PAGE] = data[other:other + PAGE], data[one:one + PAGE]
    elif kind == "copied":
        data[one:one + PAGE] = data[other:other + PAGE]
    elif kind == "zeros":
        start = random.randrange(len(data))
        length = random.choice((16, 512, PAGE))
        data[start:start + length] = bytes(len(data[start:start + length]))


def journal(data, random):
    """A forged rollback journal: its header is right, its pages are old or random."""
    header = bytearray.fromhex("d9d505f920a163d7") + random.randrange(8).to_bytes(4, "big")
    header += random.randbytes(4) + (len(data) // PAGE).to_bytes(4, "big")
    header += (512).to_bytes(4, "big") + PAGE.to_bytes(4, "big")
    return bytes(header.ljust(512, b"\0")) + random.randbytes(random.randrange(3 * PAGE))
