# SPDX-License-Identifier: GPL-3.0-or-later
"""What tests of the player's looks share: pictures of its windows, and how far two are apart."""
import math
import os
import re
import shutil

from program import LIMIT, PROGRAM, ProgramTest

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


BACK = "#406080"  # what shows where a window is cut out

TABS = ("main", "equalizer", "playlist", "ripper", "radio")
FIRST_TAB, TAB_PITCH, TAB_TOP, TAB_WIDTH = 122, 24, 9, 22


def flat(path):
    """A picture without anything that shines through, as words of convert."""
    return [path, "-background", BACK, "-alpha", "remove", "-alpha", "off"]


def part(size):
    """The upper left part of that size, as words of convert."""
    return ["-crop", "{}x{}+0+0".format(*size), "+repage"]


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

    def reduced(self, large, scale, size):
        """What a picture that was composed at 2 is at a fraction, of that size, as words of
        convert: each pixel is the mean of what it covers."""
        sizes = [(whole, round(whole * scale / 2)) for whole in
                 (next(side for side in range(math.ceil(2 * cut / scale), 4 * cut)
                       if side * scale / 2 == round(side * scale / 2)) for cut in size)]
        extent, small = ("{}x{}".format(*sides) for sides in zip(*sizes))
        return ["(", *flat(large), "-background", BACK, "-extent", extent, "-scale", small + "!",
                *part(size), ")"]

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


class ClicksTest(LooksTest):
    """Clicks on a real screen, at places in skin pixels."""

    def move(self, place):
        self.tool("xdotool", "mousemove", "--window", self.main,
                  *(str(int(coordinate * self.factor)) for coordinate in place))

    def click(self, x, y):
        """On a place in skin pixels, from somewhere else."""
        self.move((235, 300))
        self.move((x, y))
        self.tool("xdotool", "click", "1")

    def chosen_tab(self):
        """The tab that has the colour of a chosen one, by what the screen shows."""
        found = []
        for number, tab in enumerate(TABS):
            box = [(FIRST_TAB + TAB_PITCH * number) * self.factor, TAB_TOP * self.factor,
                   TAB_WIDTH * self.factor, TAB_WIDTH * self.factor]
            left, top, width, height = map(int, box)
            values = iter(self.tool_bytes(
                "import", "-silent", "-window", self.main, "-crop",
                f"{width}x{height}+{left}+{top}", "-depth", "8", "rgb:-"))
            amber = sum(red > 200 and 100 < green < 190 and blue < 80
                        for red, green, blue in zip(values, values, values))
            if amber > 4 * self.factor:
                found.append(tab)
        return found

    def start_at(self, scale, *words):
        self.factor = float(scale)
        self.environment["QT_SCALE_FACTOR"] = scale
        self.start_screen("-screen", "0", "1600x1000x24", "-wr")
        self.start_window_manager()
        self.start_shown(*words)
        self.wait_until(lambda: self.chosen_tab() == ["main"], "the first picture")

    def clicks_at(self, scale):
        """Tabs and the closing cross at that scale, in the middle and at their edges."""
        self.start_at(scale)
        for number in (1, 4, 2, 3, 0):
            self.click(FIRST_TAB + TAB_PITCH * number + TAB_WIDTH / 2, TAB_TOP + TAB_WIDTH / 2)
            self.wait_until(lambda: self.chosen_tab() == [TABS[number]], TABS[number])
        # The border of a button is where it is seen: a pixel further there is another element.
        self.click(FIRST_TAB + TAB_PITCH + 1, TAB_TOP + 11)
        self.wait_until(lambda: self.chosen_tab() == ["equalizer"], "the left edge of the tab")
        self.click(FIRST_TAB + 11, TAB_TOP + 11)
        self.wait_until(lambda: self.chosen_tab() == ["main"], "the main tab")
        self.click(FIRST_TAB + TAB_PITCH - 1, TAB_TOP + 11)  # between two tabs
        self.click(FIRST_TAB + 5 * TAB_PITCH - 3, TAB_TOP + 11)
        self.wait_until(lambda: self.chosen_tab() == ["radio"], "the right edge of the last tab")
        self.click(FIRST_TAB + 5 * TAB_PITCH - 1, TAB_TOP + 11)  # right of it
        self.click(FIRST_TAB + 2 * TAB_PITCH + 11, TAB_TOP + 1)
        self.wait_until(lambda: self.chosen_tab() == ["playlist"], "the upper edge of a tab")
        self.click(FIRST_TAB + 11, TAB_TOP + TAB_WIDTH + 1)  # below another
        self.keep_screenshot(f"scale-{scale}.png")
        said = self.tool("xdotool", "getwindowgeometry", self.main).stdout
        size = re.search(r"Geometry: (\d+)x(\d+)", said)
        self.assertEqual(tuple(map(int, size.groups())),
                         tuple(int(side * self.factor + 0.5) for side in (470, 312)))
        self.assertEqual(self.chosen_tab(), ["playlist"])
        # The closing cross is small and stands at the far side.
        self.click(434, 18)
        self.assertEqual(self.player.wait(LIMIT), 0)
