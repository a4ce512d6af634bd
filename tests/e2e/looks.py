# SPDX-License-Identifier: GPL-3.0-or-later
"""What tests of the player's looks share: pictures of its windows, and how far two are apart."""
import os
import re
import shutil

from program import PROGRAM, ProgramTest

BLOCK = 16   # skin pixels: differences are counted by such squares, so that none is lost in a mean
KEPT = 8     # of 255: by how much a channel may be off, for stored pictures have 64 shades of each
NEAR = 0.01  # the share of a square's pixels that may be further off: two or three of a skin's

# Words in a font of the system are always in this one: another machine has others.
FONTS = """<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <cachedir prefix="xdg">fontconfig</cachedir>
  <match target="pattern"><edit name="family" mode="assign" binding="strong">
    <string>DejaVu Sans</string></edit></match>
  <match target="font"><edit name="hintstyle" mode="assign"><const>hintslight</const></edit>
    <edit name="antialias" mode="assign"><bool>true</bool></edit>
    <edit name="rgba" mode="assign"><const>none</const></edit></match>
</fontconfig>
"""


class LooksTest(ProgramTest):
    def setUp(self):
        super().setUp()
        with open(self.path("fonts.conf"), "w", encoding="ascii") as file:
            file.write(FONTS)
        self.environment["FONTCONFIG_FILE"] = self.path("fonts.conf")

    def lay_data(self):
        """The data folder as a first run leaves it, without its tune."""
        shutil.copytree(os.path.join(os.path.dirname(PROGRAM), "data"), self.data(""))

    def convert(self, *words):
        return self.tool_bytes("convert", *words)

    def size(self, path):
        said = self.convert(path, "-format", "%w %h", "info:").decode()
        return tuple(map(int, said.split()))

    def colours(self, picture, left, top, width, height):
        """The pixels of a part of a picture, as (red, green, blue) row by row."""
        values = iter(self.convert(*picture, "-crop", f"{width}x{height}+{left}+{top}", "-depth",
                                   "8", "rgb:-"))
        return list(zip(values, values, values))

    @staticmethod
    def masked(scale, boxes):
        """Options that hide what is in the boxes (left, top, right, bottom in skin pixels), and a
        pixel round them."""
        words = ["-fill", "black"]
        for left, top, right, bottom in boxes:
            words += ["-draw", "rectangle {},{} {},{}".format(
                *(int(side * scale) - 1 for side in (left, top)),
                *(int(side * scale) + 1 for side in (right, bottom)))]
        return words

    def apart(self, one, other, scale, kept=KEPT):
        """The squares of two pictures (words of convert) that differ in more than a few pixels:
        their left and top in skin pixels, and the share of their pixels that is further off than
        what is kept."""
        wide, high = (int(side) for side in self.convert(
            *one, "-format", "%w %h", "info:").split())
        columns, rows = (max(1, round(side / scale / BLOCK)) for side in (wide, high))
        shares = self.convert("(", *one, ")", "(", *other, ")", "-compose", "difference",
                              "-composite", "-alpha", "off", "-separate", "-evaluate-sequence",
                              "max", "-threshold", f"{(kept + 0.5) / 255:.4%}", "-depth", "16",
                              "-scale", f"{columns}x{rows}!", "-endian", "LSB", "gray:-")
        self.assertEqual(len(shares), 2 * columns * rows)
        found = {}
        for number in range(columns * rows):
            share = int.from_bytes(shares[2 * number:2 * number + 2], "little") / 65535
            if share > NEAR:
                place = (number % columns * BLOCK, number // columns * BLOCK)
                found[place] = round(share, 3)
        return found

    def picture_of(self, window, name):
        """The path of a picture of a window on a white screen; what is cut out of the window is
        transparent."""
        path = self.path(name + ".png")
        said = self.tool("xdotool", "getwindowgeometry", "--shell", window).stdout
        left, top, wide, high = (int(re.search(rf"^{key}=(-?\d+)$", said, re.M).group(1))
                                 for key in ("X", "Y", "WIDTH", "HEIGHT"))
        cut = []
        for x, y in ((0, 0), (wide - 1, 0), (0, high - 1), (wide - 1, high - 1)):
            cut += ["-floodfill", f"+{x}+{y}", "white"]
        shot = self.tool_bytes("import", "-silent", "-window", "root", "-crop",
                               f"{wide}x{high}+{left}+{top}", "+repage", "png:-")
        with open(path, "wb") as file:
            file.write(shot)
        self.convert(path, "-alpha", "set", "-fill", "none", *cut, "-depth", "8", "-strip",
                     "-define", "png:compression-level=9", path)
        return path
