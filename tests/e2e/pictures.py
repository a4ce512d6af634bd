# SPDX-License-Identifier: GPL-3.0-or-later
"""Pictures of the screen and the bitmaps of a skin, compared pixel by pixel."""
import struct

KEY = (235, 222, 14)  # the colour of a bitmap that is no part of the picture


class Picture:
    """Rows of (red, green, blue)."""

    def __init__(self, width, height, pixels):
        self.width, self.height, self.pixels = width, height, pixels

    def at(self, x, y):
        return self.pixels[y * self.width + x]

    def part(self, left, top, width, height):
        return [self.at(x, y) for y in range(top, top + height) for x in range(left, left + width)]

    def shows(self, bitmap, left, top):
        """Whether the bitmap stands there, apart from what is cut out of it."""
        here = self.part(left, top, bitmap.width, bitmap.height)
        return all(want in (KEY, seen) for want, seen in zip(bitmap.pixels, here))


def read_bmp(path):
    with open(path, "rb") as file:
        data = file.read()
    start, width, height, bits = (struct.unpack_from("<I", data, 10)[0],
                                  *struct.unpack_from("<ii", data, 18),
                                  struct.unpack_from("<H", data, 28)[0])
    assert bits == 24 and height > 0, path
    stride = (width * 3 + 3) // 4 * 4
    starts = [start + y * stride for y in reversed(range(height))]
    rows = [data[place:place + width * 3] for place in starts]
    return Picture(width, height, [tuple(row[x:x + 3][::-1]) for row in rows
                                   for x in range(0, width * 3, 3)])
