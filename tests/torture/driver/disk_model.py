"""What a disk holds after a power cut: what was synced, and of the rest what it happened to write."""
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
        if kept == "torn":
            pending = [part for change in pending for part in torn(change, random)]
        return played(self.synced, pending)


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
    """The files of one folder, by inode, and their names. What readers share (-shm) is not kept."""

    def __init__(self, folder):
        self.folder = folder
        self.files = {}
        self.names = {}  # as they were when the folder was last synced
        self.renamed = []  # (name, inode or None) since then

    def apply(self, call, path, inode, offset, data):
        name = pathlib.Path(path).name
        if call == "create":
            self.files[inode] = File()
            self.renamed.append((name, inode))
        elif call == "unlink":
            self.renamed.append((name, None))
        elif call == "sync" and path == self.folder:
            self.names = self.names_now(len(self.renamed))
            self.renamed = []
        elif call == "sync":
            self.files[inode].sync()
        elif call == "write":
            self.files[inode].pending.append((offset, data))
        elif call == "truncate":
            self.files[inode].pending.append((offset, None))
        else:
            raise ValueError(f"the model knows no {call}")

    def names_now(self, count):
        names = {**self.names, **dict(self.renamed[:count])}
        return {name: inode for name, inode in names.items() if inode is not None}

    def after_power_loss(self, kept, random):
        """{name: content} as the next start finds it."""
        count = {"all": len(self.renamed), "nothing": 0}.get(
            kept, random.randint(0, len(self.renamed)))
        return {name: self.files[inode].after_power_loss(kept, random)
                for name, inode in self.names_now(count).items() if not name.endswith("-shm")}
