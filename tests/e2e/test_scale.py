# SPDX-License-Identifier: GPL-3.0-or-later
"""The window on screens of any density: what it looks like at the start, and what a click hits.

The pictures in the folder "looks" are what the window looked like when somebody last looked at it.
After a change that is meant, write them anew with TOVIK_KEEP_LOOKS=1, and look at them.
test_scale_long.py goes through the panels.
"""
import os
import signal
import unittest

from looks import ClicksTest, flat, part
from program import LIMIT, media

SCALES = ("1", "1.25", "1.5", "2", "3")
SIZE = (470, 312)  # of the window, in skin pixels
LOOKS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "looks")

# Two words of the display, which a picture of the start may show before the strip has drawn them.
LATE = ((148, 99, 250, 110),)
# A list paints its words in the screen's own pixels: they are no part of the composed picture.
LIST = ((288, 169, 449, 249),)
BUTTONS = {"play": (60, 270, 30, 26), "stop": (124, 270, 30, 26)}


class Scale(ClicksTest):
    def shoot(self, scale):
        """The path of a picture of the window of a fresh start, on no screen."""
        self.environment["QT_QPA_PLATFORM"] = "offscreen"
        self.environment["QT_SCALE_FACTOR"] = scale
        path = self.path(f"shot-{scale}.png")
        if not os.path.exists(path):
            result = self.run_program("--screenshot", path)
            self.assertEqual(result.returncode, 0, result.stderr)
        return path

    def test_looks_as_it_did(self):
        keep = bool(os.environ.get("TOVIK_KEEP_LOOKS"))
        for scale in SCALES:
            with self.subTest(scale=scale):
                factor = float(scale)
                shot = self.shoot(scale)
                self.assertEqual(self.size(shot), tuple(int(side * factor + 0.5) for side in SIZE))
                seen = [*flat(shot), *self.masked(factor, LATE)]
                self.look_for_fringes(shot, factor)
                kept = os.path.join(LOOKS, f"window-{scale}.png")
                if keep:
                    self.convert(*seen, "+dither", "-posterize", "64", "-define",
                                 "png:compression-level=9", "-strip", "PNG24:" + kept)
                self.assertEqual(self.apart(seen, [kept], factor), {})
        self.assertFalse(keep, "they were written anew")

    def test_a_fraction_is_one_reduction_of_the_next_whole_scale(self):
        # No seam, no fringe and no blur can be in it that is not in the mean of the pixels.
        large = self.shoot("2")
        for scale in ("1.5", "1.25"):
            with self.subTest(scale=scale):
                factor = float(scale)
                size = [int(side * factor) for side in SIZE]
                shot = [*flat(self.shoot(scale)), *part(size)]
                hidden = self.masked(factor, LATE + LIST)
                self.assertEqual(self.apart([*self.reduced(large, factor, size), *hidden],
                                            [*shot, *hidden], factor, kept=3), {})
                # A window that was composed at 1 and made larger is far from it.
                blurred = [*flat(self.shoot("1")), "-resize", "{}x{}!".format(*size)]
                self.assertGreater(
                    len(self.apart([*blurred, *hidden], [*shot, *hidden], factor)), 100)

    def look_for_fringes(self, shot, factor):
        """The key colour is nowhere, not even faintly, and only the outline may let shine through."""
        values = self.convert(*flat(shot), "-fuzz", "12%", "-fill", "white",
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

    def test_clicks_hit_the_right_element_at_one_and_a_half(self):
        self.clicks_at("1.5")


if __name__ == "__main__":
    unittest.main()
