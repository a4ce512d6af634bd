# SPDX-License-Identifier: GPL-3.0-or-later
"""The window on screens of any density: what it looks like, and what a click hits.

The pictures in the folder "looks" are what the window looked like when somebody last looked at it.
After a change that is meant, write them anew with TOVIK_KEEP_LOOKS=1, and look at them.
"""
import os
import re
import signal
import unittest

from program import LIMIT, ProgramTest, media

SCALES = ("1", "1.25", "1.5", "2", "3")
SIZE = (470, 312)  # of the window, in skin pixels
LOOKS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "looks")
KEPT = 24  # by how much a channel may be off: the kept pictures have a palette of 256 colours
BACK = "#406080"  # what shows where the window is cut out

# Where there are words in a font of the system: left, top, right and bottom in skin pixels.
WORDS = ((20, 154, 100, 167), (20, 198, 80, 211), (166, 198, 250, 211), (288, 46, 430, 136),
         (288, 154, 420, 168), (246, 276, 288, 292))
# Two words of the display, which a picture of the start may show before the strip has drawn them.
LATE = ((148, 99, 250, 110),)
# What widgets show that are no part of the composed picture.
WIDGETS = ((288, 168, 450, 250),)

TABS = ("main", "equalizer", "playlist", "ripper", "radio")
FIRST_TAB, TAB_PITCH, TAB_TOP, TAB_WIDTH = 122, 24, 9, 22
BUTTONS = {"play": (60, 270, 30, 26), "stop": (124, 270, 30, 26)}


class Scale(ProgramTest):
    def shoot(self, scale):
        """The path of a picture of the window of a fresh start, on no screen."""
        self.environment["QT_QPA_PLATFORM"] = "offscreen"
        self.environment["QT_SCALE_FACTOR"] = scale
        path = self.path(f"shot-{scale}.png")
        result = self.run_program("--screenshot", path)
        self.assertEqual(result.returncode, 0, result.stderr)
        return path

    def convert(self, *words):
        return self.tool_bytes("convert", *words)

    @staticmethod
    def masked(scale, boxes):
        """Options that hide what is in the boxes, and a pixel round them."""
        words = ["-fill", "black"]
        for left, top, right, bottom in boxes:
            words += ["-draw", "rectangle {},{} {},{}".format(
                *(int(side * scale) - 1 for side in (left, top)),
                *(int(side * scale) + 1 for side in (right, bottom)))]
        return words

    def size(self, path):
        said = self.convert(path, "-format", "%w %h", "info:").decode()
        return tuple(map(int, said.split()))

    def apart(self, one, other):
        """How many of the channels' values of two pictures are further apart than what is kept,
        as a share of all of them."""
        values = self.convert("(", *one, ")", "(", *other, ")", "-compose", "difference",
                              "-composite", "-depth", "8", "rgb:-")
        return len(values.translate(None, bytes(range(KEPT + 1)))) / len(values)

    @staticmethod
    def flat(path):
        return [path, "-background", BACK, "-alpha", "remove", "-alpha", "off"]

    def test_looks_as_it_did(self):
        keep = bool(os.environ.get("TOVIK_KEEP_LOOKS"))
        for scale in SCALES:
            with self.subTest(scale=scale):
                factor = float(scale)
                shot = self.shoot(scale)
                self.assertEqual(self.size(shot), tuple(int(side * factor + 0.5) for side in SIZE))
                seen = [*self.flat(shot), *self.masked(factor, WORDS + LATE + WIDGETS)]
                self.look_for_fringes(shot, factor)
                kept = os.path.join(LOOKS, f"window-{scale}.png")
                if keep:
                    self.convert(*seen, "+dither", "-colors", "256", "-define",
                                 "png:compression-level=9", "-strip", "PNG8:" + kept)
                self.assertLess(self.apart(seen, [kept]), 0.004)
        self.assertFalse(keep, "they were written anew")

    def test_a_fraction_is_one_reduction_of_the_next_whole_scale(self):
        # No seam, no fringe and no blur can be in it that is not in the mean of the pixels.
        large = self.shoot("2")
        for scale, whole, reduced in (("1.5", (940, 624), (705, 468)),
                                      ("1.25", (944, 624), (590, 390))):
            with self.subTest(scale=scale):
                factor = float(scale)
                width, height = (int(side * factor) for side in SIZE)
                part = ["-crop", f"{width}x{height}+0+0", "+repage"]
                ideal = [*self.flat(large), "-background", BACK,
                         "-extent", "{}x{}".format(*whole), "-scale", "{}x{}!".format(*reduced)]
                shot = self.flat(self.shoot(scale))
                hidden = self.masked(factor, LATE + WIDGETS)
                self.assertLess(self.apart([*ideal, *part, *hidden], [*shot, *part, *hidden]),
                                0.001)
                # A window that was composed at 1 and made larger is far from it.
                blurred = [*self.flat(self.shoot("1")), "-resize", f"{width}x{height}!"]
                self.assertGreater(self.apart([*blurred, *hidden], [*shot, *part, *hidden]), 0.02)

    def look_for_fringes(self, shot, factor):
        """The key colour is nowhere, not even faintly, and only the outline may let shine through."""
        values = self.convert(*self.flat(shot), "-fuzz", "12%", "-fill", "white",
                              "+opaque", "rgb(235,222,14)", "-fill", "black", "-opaque",
                              "rgb(235,222,14)", "-depth", "8", "gray:-")
        self.assertEqual(len(values.replace(b"\xff", b"")), 0)
        alphas = self.convert(shot, "-alpha", "extract", "-depth", "8", "gray:-")
        between = len(alphas.translate(None, b"\x00\xff"))
        if factor.is_integer():
            self.assertEqual(between, 0)
        else:
            self.assertLess(between, 4 * sum(SIZE) * factor)
        self.assertGreater(alphas.count(0), 100)

    def test_a_replaced_bitmap_shows_at_every_scale(self):
        self.environment["QT_QPA_PLATFORM"] = "offscreen"
        path = self.data("skins/CurrentSkin/btn_play_up.bmp")
        player = self.start_program("--device", "silent", media("wav_s16_44100_stereo.wav"))
        self.wait_until(lambda: os.path.exists(path), "the skin")
        player.send_signal(signal.SIGTERM)
        self.assertEqual(player.wait(LIMIT), 0)
        left, top, width, height = BUTTONS["play"]
        self.convert("-size", f"{width}x{height}", "xc:rgb(200,10,20)", "-type", "truecolor",
                     "BMP3:" + path)
        for scale in ("1.5", "2", "3"):
            with self.subTest(scale=scale):
                factor = float(scale)
                shot = self.shoot(scale)
                inner = "{}x{}+{}+{}".format(
                    *(int((side - 4) * factor) for side in (width, height)),
                    *(int((side + 2) * factor) for side in (left, top)))
                colours = self.convert(shot, "-alpha", "off", "-crop", inner, "-depth", "8",
                                       "rgb:-")
                self.assertEqual(colours, bytes((200, 10, 20)) * (len(colours) // 3))

    def click(self, x, y):
        """On a place in skin pixels, from somewhere else."""
        for place in ((235, 300), (x, y)):
            self.tool("xdotool", "mousemove", "--window", self.main,
                      *(str(int(coordinate * self.factor)) for coordinate in place))
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

    def lists(self):
        """What the screen shows where widgets paint themselves."""
        left, top, right, bottom = (int(side * self.factor) for side in WIDGETS[0])
        return self.tool_bytes("import", "-silent", "-window", self.main, "-crop",
                               f"{right - left}x{bottom - top}+{left}+{top}", "-depth", "8",
                               "rgb:-")

    def clicks_at(self, scale):
        self.factor = float(scale)
        self.environment["QT_SCALE_FACTOR"] = scale
        self.start_screen("-screen", "0", "1280x1024x24")
        self.start_window_manager()
        self.start_shown()
        self.wait_until(lambda: self.chosen_tab() == ["main"], "the first picture")
        lists = self.lists()
        for number in (1, 4, 2, 3, 0):
            self.click(FIRST_TAB + TAB_PITCH * number + TAB_WIDTH / 2, TAB_TOP + TAB_WIDTH / 2)
            self.wait_until(lambda: self.chosen_tab() == [TABS[number]], TABS[number])
        self.wait_until(lambda: self.lists() == lists, "the list as it was before, to the pixel")
        # The border of a button is where it is seen: a pixel further there is another element.
        self.click(FIRST_TAB + TAB_PITCH + 1, TAB_TOP + 11)
        self.wait_until(lambda: self.chosen_tab() == ["equalizer"], "the left edge of the tab")
        self.click(FIRST_TAB + 11, TAB_TOP + 11)
        self.wait_until(lambda: self.chosen_tab() == ["main"], "the main tab")
        self.click(FIRST_TAB + TAB_PITCH - 1, TAB_TOP + 11)  # between two tabs
        self.click(FIRST_TAB + 5 * TAB_PITCH - 3, TAB_TOP + 11)
        self.wait_until(lambda: self.chosen_tab() == ["radio"], "the right edge of the last tab")
        self.keep_screenshot(f"scale-{scale}.png")
        said = self.tool("xdotool", "getwindowgeometry", self.main).stdout
        size = re.search(r"Geometry: (\d+)x(\d+)", said)
        self.assertEqual(tuple(map(int, size.groups())),
                         tuple(int(side * self.factor + 0.5) for side in SIZE))
        # The closing cross is small and stands at the far side.
        self.click(434, 18)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def test_clicks_hit_the_right_element_at_one_and_a_half(self):
        self.clicks_at("1.5")

    def test_clicks_hit_the_right_element_at_two(self):
        self.clicks_at("2")


if __name__ == "__main__":
    unittest.main()
