"""The content of a disk after a power cut: all synced data, and a random part of the rest."""
import pathlib

SECTOR = 512


class File:
    def __init__(self):
        self.synced = b""
        self.pending = []  # (offset, data), or (length, None) for a truncation

    def sync(self):
        self.synced = played(self.synced, self.pending)
        self.pending = []

    def after_power_loss(self, kept, random):
        if kept == "nothing":
            return self.synced
        pending = self.pending
        if kept != "all":
            pending = [change for change in pending if random.random() < 0.5]
        if kept in ("torn", "garbage"):
            pending = [part for change in pending for part in torn(change, random)]
        content = played(self.synced, pending)
        if kept != "garbage":
            return content
        # Bytes by which the file grew without a write contain the disk's earlier data.
        old = self.synced + random.randbytes(max(0, len(content) - len(self.synced)))
        return played(old[:len(content)], pending)


def torn(change, random):
    """Some of the sectors of a write. A truncation is one change of the file's length."""
    offset, data = change
    if data is None:
        return [change]
    parts = []
    end = offset + len(data)
    while offset < end:
        border = min(end, (offset // SECTOR + 1) * SECTOR)
        if random.random() < 0.5:
            parts.append((offset, data[:border - offset]))
        data = data[border - offset:]
        offset = border
    return parts


def played(content, changes):
    result = bytearray(content)
    for offset, data in changes:
        if data is None:
            result = result[:offset].ljust(offset, b"\0")
            continue
        if len(result) < offset:  # what lies between was never written
            result = result.ljust(offset, b"\0")
        result[offset:offset + len(data)] = data
    return bytes(result)


class Disk:
    """The files of one folder and of those below, by inode, and their names.

    A name is on the disk when the folder it stands in was synced. Of the others the disk keeps as many
    as it likes, in their order. What readers share (-shm) is not kept.
    """

    FOLDER = object()

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.files = {}
        self.names = {}  # path: inode, or FOLDER
        self.pending = []  # (path, inode, FOLDER or None)

    def apply(self, call, path, inode, offset, data):
        path = pathlib.Path(path)
        if call == "create":
            self.files[inode] = File()
            self.pending.append((path, inode))
        elif call == "unlink":
            self.pending.append((path, None))
        elif call == "mkdir":
            self.pending.append((path, self.FOLDER))
        elif call == "sync" and inode not in self.files:
            self.names.update(change for change in self.pending if change[0].parent == path)
            self.pending = [change for change in self.pending if change[0].parent != path]
        elif call == "sync":
            self.files[inode].sync()
        elif call == "write":
            self.files[inode].pending.append((offset, data))
        elif call == "truncate":
            self.files[inode].pending.append((offset, None))
        else:
            raise ValueError(f"the model knows no {call}")

    def names_now(self, count):
        """{path: inode} of the reachable files when so many pending names were kept."""
        names = {**self.names, **dict(self.pending[:count])}
        return {path: inode for path, inode in names.items() if isinstance(inode, int) and all(
            names.get(above) is self.FOLDER for above in path.parents if self.folder in above.parents)}

    def restore(self, kept, random):
        """Writes the files for the next start, into folders that may be new."""
        count = {"all": len(self.pending), "nothing": 0}.get(
            kept, random.randint(0, len(self.pending)))
        for path, inode in self.names_now(count).items():
            if not path.name.endswith("-shm"):
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_bytes(self.files[inode].after_power_loss(kept, random))
