"""Pictures of an X display, read with its client library."""

import ctypes


class _Image(ctypes.Structure):
    """The first members of the structure XImage."""

    _fields_ = [
        ("width", ctypes.c_int), ("height", ctypes.c_int), ("xoffset", ctypes.c_int),
        ("format", ctypes.c_int), ("data", ctypes.POINTER(ctypes.c_char)),
        ("byte_order", ctypes.c_int), ("bitmap_unit", ctypes.c_int), ("bitmap_bit_order", ctypes.c_int),
        ("bitmap_pad", ctypes.c_int), ("depth", ctypes.c_int), ("bytes_per_line", ctypes.c_int),
        ("bits_per_pixel", ctypes.c_int),
    ]


class Picture:
    """Rows of pixels, four bytes each."""

    def __init__(self, rows):
        self.rows = rows

    def __eq__(self, other):
        return self.rows == other.rows

    def colours(self, x, y, width, height):
        """The set of colours in a rectangle."""
        return {row[4 * i:4 * i + 4] for row in self.rows[y:y + height] for i in range(x, x + width)}

    def changed(self, other, apart_from=None):
        """(left, top, right, bottom) of the pixels that differ outside a rectangle (x, y, width, height);
        None when all are equal."""
        found = []
        for y, (mine, its) in enumerate(zip(self.rows, other.rows)):
            if mine == its:
                continue
            different = [i for i in range(len(mine) // 4) if mine[4 * i:4 * i + 4] != its[4 * i:4 * i + 4]]
            if apart_from:
                left, top, width, height = apart_from
                if top <= y < top + height:
                    different = [i for i in different if not left <= i < left + width]
            if different:
                found.append((different[0], y, different[-1] + 1))
        if not found:
            return None
        return min(f[0] for f in found), found[0][1], max(f[2] for f in found), found[-1][1] + 1


class Display:
    """The X display that the environment variable DISPLAY names."""

    def __init__(self):
        self.library = ctypes.CDLL("libX11.so.6")
        self.library.XOpenDisplay.restype = ctypes.c_void_p
        self.library.XDefaultRootWindow.restype = ctypes.c_ulong
        self.library.XGetImage.restype = ctypes.POINTER(_Image)
        self.display = ctypes.c_void_p(self.library.XOpenDisplay(None))
        assert self.display, "there is no X display"
        self.root = ctypes.c_ulong(self.library.XDefaultRootWindow(self.display))

    def picture(self):
        every_plane, as_pixels = ctypes.c_ulong(0xFFFFFFFF), 2
        width = self.library.XDisplayWidth(self.display, 0)
        height = self.library.XDisplayHeight(self.display, 0)
        image = self.library.XGetImage(self.display, self.root, 0, 0, width, height, every_plane, as_pixels)
        assert image and image.contents.bits_per_pixel == 32, "the display has no pixels of 32 bits"
        line = image.contents.bytes_per_line
        data = ctypes.string_at(image.contents.data, line * height)
        self.library.XDestroyImage(image)
        return Picture([data[y * line:y * line + 4 * width] for y in range(height)])
