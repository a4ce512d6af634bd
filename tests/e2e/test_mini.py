# SPDX-License-Identifier: GPL-3.0-or-later
"""The mini window: in and out of it, what it looks like, what is done to it."""
import os
import re
import time
import unittest

from pictures import KEY, Picture, read_bmp
from program import LIMIT, ProgramTest, media, odd

WIDTH, HEIGHT = 160, 125
GROUND = (130, 4)  # a place where nothing stands
MINI_BUTTON = (393, 18)  # of the main window
RESTORE, HIDE, CLOSE = (27, 53), (25, 65), (27, 77)
NEAR = 24  # of 255: what a reduction may make of a colour
SONG = media("wav_s16_44100_stereo.wav")


class Mini(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen("-wr")  # what shows through the window is white
        self.start_window_manager()

    def minis(self):
        return self.windows_of_role("mini")

    def enter(self):
        """By the keyboard; returns the window."""
        self.key("ctrl+w")
        self.mini = self.first(self.minis, "the mini window")
        return self.mini

    def key(self, key):
        """As a hand does it: to the window that has the keyboard, once one of ours has."""
        self.wait_until(lambda: self.tool("xdotool", "getactivewindow").stdout.strip() in
                        self.shown("--class", "tovik"), "the keyboard")
        self.tool("xdotool", "key", key)

    def click(self, window, x, y, button="1"):
        self.tool("xdotool", "mousemove", "--window", window, str(x), str(y), "click", button)

    def place(self):
        said = self.tool("xdotool", "getwindowgeometry", "--shell", self.mini).stdout
        return tuple(int(re.search(rf"^{name}=(-?\d+)$", said, re.M).group(1)) for name in "XY")

    def picture(self):
        left, top = self.place()
        raw = self.tool_bytes("import", "-silent", "-window", "root", "-crop",
                              f"{WIDTH}x{HEIGHT}+{left}+{top}", "-depth", "8", "rgb:-")
        values = iter(raw)
        return Picture(WIDTH, HEIGHT, list(zip(values, values, values)))

    def bitmap(self, name):
        return read_bmp(self.data(f"skins/CurrentSkin/{name}.bmp"))

    def see(self, condition, what):
        self.wait_until(lambda: condition(self.picture()), what)

    def setting_of(self, key):
        return re.search(rb"<%s>([^<]*)</%s>" % (key, key), self.read("db/settings.xml")).group(1)

    def test_one_window_gives_way_to_the_other(self):
        self.start_shown(SONG)
        self.enter()
        self.wait_until(lambda: not self.player_windows(), "the main window to go")
        self.assertEqual(len(self.minis()), 1)
        ground = self.bitmap("minmode_main")
        self.assertEqual((ground.width, ground.height), (WIDTH, HEIGHT))
        # The ground is seen where nothing lies on it, and what is cut out of it shows what is below.
        self.see(lambda p: p.at(*GROUND) == ground.at(*GROUND), "the ground")
        for index, name in enumerate(("pre", "play", "pause", "stop", "next", "open")):
            self.see(lambda p, i=index, n=name: p.shows(self.bitmap("minmode_" + n), 40 + 12 * i, 86),
                     name)
        self.see(lambda p: p.shows(self.bitmap("minmode_0"), 50, 36), "the first digit")
        cut = [i for i, pixel in enumerate(ground.pixels) if pixel == KEY]
        self.assertGreater(len(cut), 1000)
        seen = self.picture()
        self.assertEqual([i for i in cut if seen.pixels[i] != (255, 255, 255)], [])
        self.keep_screenshot("mini.png")
        self.key("ctrl+w")
        self.wait_until(self.player_windows, "the main window")
        self.wait_until(lambda: not self.minis(), "the mini window to go")
        self.end_shown()

    def test_buttons_lead_in_and_back_and_out(self):
        self.start_shown(SONG)
        self.click(self.main, *MINI_BUTTON)
        self.mini = self.first(self.minis, "the mini window")
        self.click(self.mini, *RESTORE)
        self.wait_until(self.player_windows, "the main window")
        self.wait_until(lambda: not self.minis(), "the mini window to go")
        self.enter()
        # Hidden it would be lost without a tray: it goes down to the task bar.
        self.click(self.mini, *HIDE)
        self.wait_until(lambda: not self.minis(), "the mini window to be minimised")
        self.tool("xdotool", "windowactivate", "--sync", self.mini)
        self.wait_until(self.minis, "the mini window")
        self.click(self.mini, *CLOSE)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def test_what_is_done_to_it(self):
        self.start_shown(SONG)
        self.enter()
        before = self.place()
        up = self.bitmap("minmode_play")
        self.see(lambda p: p.shows(up, 52, 86), "the button")
        # The wheel is the volume, anywhere.
        volume = int(self.setting_of(b"CVL"))
        self.tool("xdotool", "mousemove", "--window", self.mini, "60", "45", "click", "5", "click",
                  "5")
        self.wait_until(lambda: int(self.setting_of(b"CVL")) == volume - 10, "the volume")
        # The clock moves, and turns its direction under a double click.
        self.see(lambda p: p.shows(self.bitmap("minmode_1"), 92, 36), "the second")
        sign = self.picture().part(40, 36, 10, 15)
        self.tool("xdotool", "mousemove", "--window", self.mini, "97", "43", "click", "--repeat",
                  "2", "--delay", "50", "1")
        self.see(lambda p: p.part(40, 36, 10, 15) != sign, "the minus")
        # The window follows the ground.
        self.tool("xdotool", "mousemove", "--window", self.mini, *map(str, GROUND), "mousedown",
                  "1")
        for _ in range(6):
            self.tool("xdotool", "mousemove_relative", "--sync", "20", "10")
        self.tool("xdotool", "mouseup", "1")
        self.wait_until(lambda: self.place()[0] >= before[0] + 80, "the window to follow")
        time.sleep(0.2)
        after = self.place()
        # It comes back where it was left.
        self.key("ctrl+w")
        self.wait_until(self.player_windows, "the main window")
        self.enter()
        self.wait_until(lambda: self.place() == after, "the place of before")
        # A right click brings the menu of all.
        self.click(self.mini, *GROUND, "3")
        self.wait_until(lambda: len(self.shown("--class", "tovik")) == 2, "the menu")
        self.keep_screenshot("mini-menu.png")
        self.tool("xdotool", "key", "Escape")
        self.wait_until(lambda: len(self.shown("--class", "tovik")) == 1, "the end of the menu")
        self.end_shown()

    @odd
    def test_without_a_bitmap_the_main_window_stays(self):
        self.start_shown(SONG)
        os.remove(self.data("skins/CurrentSkin/minmode_3.bmp"))
        self.key("ctrl+w")
        self.answer(self.plain_box())
        self.assertTrue(self.player_windows())
        self.assertFalse(self.minis())
        self.assertIn(b"minmode_3.bmp", self.read("db/err.log"))
        self.end_shown()

    def test_a_panel_that_is_chosen_brings_the_main_window(self):
        self.start_shown(SONG)
        self.enter()
        self.key("3")
        self.wait_until(self.player_windows, "the main window")
        self.wait_until(lambda: not self.minis(), "the mini window to go")
        self.end_shown()

    def see_at(self, scale, wide, high, colours):
        """Waits for the colours of places of the window, in skin pixels, nearly as they are."""
        left, top = self.place()

        def far():
            raw = self.tool_bytes("import", "-silent", "-window", "root", "-crop",
                                  f"{wide}x{high}+{left}+{top}", "-depth", "8", "rgb:-")
            if len(raw) != 3 * wide * high:
                return {"size": len(raw)}
            wrong = {}
            for (x, y), colour in colours.items():
                at = 3 * (int((y + 0.5) * scale) * wide + int((x + 0.5) * scale))
                seen = tuple(raw[at:at + 3])
                if max(abs(a - b) for a, b in zip(seen, colour)) > NEAR:
                    wrong[(x, y)] = (seen, colour)
            return wrong

        self.wait_until(lambda: not far(), "the colours")

    def test_at_any_scale(self):
        for scale in ("1.5", "2", "3"):
            with self.subTest(scale=scale):
                self.environment["QT_SCALE_FACTOR"] = scale
                self.start_shown(SONG)
                self.enter()
                said = self.tool("xdotool", "getwindowgeometry", "--shell", self.mini).stdout
                wide, high = (round(float(scale) * side) for side in (WIDTH, HEIGHT))
                self.assertIn(f"WIDTH={wide}\nHEIGHT={high}\n", said)
                ground, play = self.bitmap("minmode_main"), self.bitmap("minmode_play")
                # Colours of the middle of a skin pixel, in a place without a fine pattern.
                self.see_at(float(scale), wide, high, {
                    GROUND: ground.at(*GROUND),
                    (30, 86): ground.at(30, 86),
                    (52 + 5, 86 + 5): play.at(5, 5),
                    (2, 2): (255, 255, 255),  # cut out
                })
                self.keep_screenshot(f"mini-{scale}.png")
                self.end_shown()


if __name__ == "__main__":
    unittest.main()
