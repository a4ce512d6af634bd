# SPDX-License-Identifier: GPL-3.0-or-later
"""The skinned window as it looks: panels, faces under the mouse, outline, skin files, language.

What is seen is compared with the bitmaps of the skin folder, so the tests hold for any artwork."""
import os
import re
import signal
import struct
import time
import unittest

from pictures import KEY, Picture, read_bmp
from program import LIMIT, ProgramTest, media, odd

WIDTH, HEIGHT = 470, 312  # of the window
GROUND = (350, 285)  # a place where nothing stands
SCREEN = (40, 140)  # a place of the display where nothing stands
WHITE = (255, 255, 255)

# Each tab with the middle of it, a button of its panel and where that stands.
PANELS = {
    "mainbt": (133, 20, "btn_loop_off", 52, 242),
    "eqbt": (157, 20, "btn_reset", 142, 242),
    "plbt": (181, 20, "btn_addloc", 102, 242),
    "ripbt": (205, 20, "btn_rip", 22, 242),
    "irtbt": (229, 20, "btn_add", 72, 242),
}

# Buttons that have nothing to do yet.
DISABLED = ()
PALE = 0.45  # how much of such a picture is seen over the ground

# Each button that has an up, an over and a down face, and where it stands.
BUTTONS = {
    "prev": (28, 270), "play": (60, 270), "pause": (92, 270), "stop": (124, 270),
    "next": (156, 270), "file": (202, 270), "minmode": (385, 10), "min": (405, 10),
    "close": (425, 10),
}


def paint_bmp(path, colour, left, top, width, height):
    """Fills a part of a bitmap file."""
    with open(path, "rb") as file:
        data = bytearray(file.read())
    start, total_width, total_height = (struct.unpack_from("<I", data, 10)[0],
                                        *struct.unpack_from("<ii", data, 18))
    stride = (total_width * 3 + 3) // 4 * 4
    for y in range(top, top + height):
        place = start + (total_height - 1 - y) * stride + left * 3
        data[place:place + width * 3] = bytes(reversed(colour)) * width
    with open(path, "wb") as file:
        file.write(data)


class SkinWindow(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen("-wr")  # what shows through the window is white
        self.start_window_manager()

    def start(self):
        self.player = self.start_program("--device", "silent", media("wav_s16_44100_stereo.wav"))
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.mouse(*GROUND)
        self.see(lambda picture: picture.shows(self.bitmap("mainbt_down"), 122, 9),
                 "the first picture")

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def mouse(self, x, y, *actions):
        self.tool("xdotool", "mousemove", "--window", self.shown_window, str(x), str(y), *actions)

    def skin_file(self, name):
        return self.data(f"skins/CurrentSkin/{name}.bmp")

    def bitmap(self, name):
        return read_bmp(self.skin_file(name))

    def place(self):
        """Left and top of the window."""
        said = self.tool("xdotool", "getwindowgeometry", "--shell", self.shown_window).stdout
        return tuple(int(re.search(rf"^{name}=(-?\d+)$", said, re.M).group(1)) for name in "XY")

    def steady_place(self):
        """A place that looks a while apart agree on."""
        before = None
        while (after := self.place()) != before:
            before = after
            time.sleep(0.2)
        return after

    def picture(self):
        """What the screen shows where the window is."""
        left, top = self.place()
        raw = self.tool_bytes("import", "-silent", "-window", "root", "-crop",
                              f"{WIDTH}x{HEIGHT}+{left}+{top}", "-depth", "8", "rgb:-")
        values = iter(raw)
        pixels = list(zip(values, values, values))
        self.assertEqual(len(pixels), WIDTH * HEIGHT)
        return Picture(WIDTH, HEIGHT, pixels)

    def see(self, condition, what):
        """Waits until the picture is as told, and returns it."""
        seen = []

        def look():
            seen[:] = [self.picture()]
            return condition(seen[0])

        self.wait_until(look, what)
        return seen[0]

    def under_pointer(self):
        """The window that a click would reach; of a managed one it is the frame round it."""
        said = self.tool("xdotool", "getmouselocation", "--shell").stdout
        return re.search(r"^WINDOW=(\d+)$", said, re.M).group(1)

    def shows_button(self, picture, name, left, top):
        """Whether a button without faces stands there; pale if it has nothing to do."""
        bitmap = self.bitmap(name)
        if name not in DISABLED:
            return picture.shows(bitmap, left, top)
        ground = self.bitmap("main").part(left, top, bitmap.width, bitmap.height)
        here = picture.part(left, top, bitmap.width, bitmap.height)
        return all(abs(PALE * want + (1 - PALE) * below - seen) < 3
                   for pixels in zip(bitmap.pixels, ground, here) if pixels[0] != KEY
                   for want, below, seen in zip(*pixels))

    def test_each_tab_shows_its_panel(self):
        self.start()
        tabs = [*list(PANELS)[1:], "mainbt", "eqbt"]
        for tab in tabs:
            x, y, button, left, top = PANELS[tab]
            with self.subTest(tab=tab):
                self.mouse(x, y, "click", "1")
                seen = self.see(lambda p: p.shows(self.bitmap(tab + "_down"), x - 11, 9)
                                and self.shows_button(p, button, left, top), "the panel")
                for other, (other_x, _, other_button, *spot) in PANELS.items():
                    if other != tab:
                        self.assertTrue(seen.shows(self.bitmap(other), other_x - 11, 9), other)
                        self.assertFalse(self.shows_button(seen, other_button, *spot), other)
                self.keep_screenshot(f"panel-{tab}.png")
                self.mouse(*GROUND)
        self.end()

    @odd
    def test_a_tab_has_its_over_face_under_the_mouse(self):
        self.start()
        for tab, (x, y, *_) in PANELS.items():
            with self.subTest(tab=tab):
                self.mouse(x, y)
                self.see(lambda p: p.shows(self.bitmap(tab + "_over"), x - 11, 9), "the over face")
                self.mouse(*GROUND)
                face = "mainbt_down" if tab == "mainbt" else tab
                self.see(lambda p: p.shows(self.bitmap(face), x - 11, 9), "the face of before")
        self.end()

    def test_each_button_has_its_faces(self):
        self.start()
        for name, (left, top) in BUTTONS.items():
            if name in DISABLED:
                continue
            up, over, down = (self.bitmap(f"btn_{name}_{face}") for face in ("up", "over", "down"))
            with self.subTest(button=name):
                self.assertTrue(self.picture().shows(up, left, top))
                self.mouse(left + 8, top + 8)
                self.see(lambda p: p.shows(over, left, top), "the over face")
                self.mouse(*GROUND)
                self.see(lambda p: p.shows(up, left, top), "the up face")
                # It also ends over another area, and when the mouse leaves the window at once.
                self.mouse(left + 8, top + 8)
                self.see(lambda p: p.shows(over, left, top), "the over face")
                self.mouse(*SCREEN)
                self.see(lambda p: p.shows(up, left, top), "the up face")
                self.mouse(left + 8, top + 8)
                self.see(lambda p: p.shows(over, left, top), "the over face")
                self.tool("xdotool", "mousemove", "1020", "760")
                self.see(lambda p: p.shows(up, left, top), "the up face")
        for name in ("prev", "play", "pause", "stop", "next"):
            left, top = BUTTONS[name]
            up, down = (self.bitmap(f"btn_{name}_{face}") for face in ("over", "down"))
            with self.subTest(pressed=name):
                self.mouse(left + 8, top + 8, "mousedown", "1")
                self.see(lambda p: p.shows(down, left, top), "the down face")
                self.mouse(left + 8, top + 8, "mouseup", "1")
                self.see(lambda p: p.shows(up, left, top), "the over face again")
        self.end()

    def test_a_button_with_one_picture_has_three_faces(self):
        self.start()
        self.mouse(*PANELS["eqbt"][:2], "click", "1")
        plain = self.bitmap("btn_reset")
        left, top = PANELS["eqbt"][3:]
        self.see(lambda p: p.shows(plain, left, top), "the button")

        def light(picture):
            return sum(map(sum, picture.part(left, top, plain.width, plain.height)))

        ground = self.bitmap("main").part(left, top, plain.width, plain.height)
        own = sum(sum(below if pixel == KEY else pixel)
                  for pixel, below in zip(plain.pixels, ground))
        self.mouse(left + 8, top + 8)
        self.see(lambda p: light(p) > 1.1 * own, "the lighter face")
        self.mouse(left + 8, top + 8, "mousedown", "1")
        self.see(lambda p: light(p) < 0.9 * own, "the darker face")
        self.mouse(*GROUND)
        self.see(lambda p: light(p) == own, "the face of a press that does nothing")
        self.tool("xdotool", "mouseup", "1")
        self.mouse(left + 8, top + 8)
        self.see(lambda p: light(p) > 1.1 * own, "the lighter face")
        self.mouse(*GROUND)
        self.see(lambda p: light(p) == own, "the face of before")
        self.end()

    def test_the_ground_moves_the_window(self):
        self.start()
        before = self.steady_place()
        self.mouse(*GROUND, "mousedown", "1")
        for _ in range(6):
            self.tool("xdotool", "mousemove_relative", "--sync", "20", "10")
        self.tool("xdotool", "mouseup", "1")
        # The first step may pass while the window manager takes over.
        self.wait_until(lambda: self.steady_place()[0] >= before[0] + 80
                        and self.steady_place()[1] >= before[1] + 40, "the window to follow")
        left, top = self.steady_place()
        self.assertLessEqual(left, before[0] + 120)
        self.assertLessEqual(top, before[1] + 60)
        self.end()
        # In the unit of the settings, 15 to a pixel, as it stood.
        settings = self.read("db/settings.xml")
        self.assertIn(b"<X>%d</X>" % (15 * left), settings)
        self.assertIn(b"<Y>%d</Y>" % (15 * top), settings)
        self.start()
        self.assertEqual(self.place(), (left, top))
        self.end()

    def test_the_window_lets_go_of_the_pointer(self):
        self.start()
        for _ in range(3):
            before = self.steady_place()
            # Quick ones: the window manager has not taken over when the next ones come.
            moves = [word for _ in range(40)
                     for word in ("mousemove_relative", "3", "2", "sleep", "0.01")]
            self.mouse(*GROUND, "mousedown", "1", *moves, "mouseup", "1")
            self.wait_until(lambda: self.place()[0] > before[0] + 20, "the window to follow")
            left = self.steady_place()
            for _ in range(10):
                self.tool("xdotool", "mousemove_relative", "--sync", "--", "-7", "-5")
            self.assertEqual(self.steady_place(), left)
            # What is pressed next is a press again, not the end of a drag.
            self.mouse(157, 20, "click", "1")
            self.see(lambda p: p.shows(self.bitmap("eqbt_down"), 146, 9), "the panel")
            self.mouse(133, 20, "click", "1")
            self.see(lambda p: p.shows(self.bitmap("mainbt_down"), 122, 9), "the main panel")
            self.tool("xdotool", "windowmove", "--sync", self.shown_window, "50", "50")
        self.end()

    def test_the_outline_is_that_of_the_ground(self):
        self.start()
        seen, ground = self.picture(), self.bitmap("main")
        cut = [i for i, pixel in enumerate(ground.pixels) if pixel == KEY]
        self.assertIn(0, cut)
        self.assertEqual([i for i in cut if seen.pixels[i] != WHITE], [])
        frame = self.under_pointer()
        self.mouse(0, 0)
        self.assertNotEqual(self.under_pointer(), frame)
        self.end()
        # Another ground is another outline, at the next start.
        paint_bmp(self.skin_file("main"), KEY, GROUND[0], GROUND[1], 20, 10)
        paint_bmp(self.skin_file("main"), (1, 2, 3), 0, 0, 8, 8)
        self.player = self.start_program("--device", "silent", media("wav_s16_44100_stereo.wav"))
        self.shown_window = self.window_of(self.player)
        seen = self.see(lambda p: p.at(*GROUND) == WHITE and p.at(4, 4) == (1, 2, 3), "the hole")
        self.assertNotEqual(seen.at(GROUND[0] - 1, GROUND[1]), WHITE)
        self.mouse(4, 4)
        frame = self.under_pointer()
        self.mouse(GROUND[0] + 10, GROUND[1] + 5)
        self.assertNotEqual(self.under_pointer(), frame)
        self.end()

    def test_a_replaced_bitmap_shows_at_the_next_start(self):
        self.start()
        self.end()
        left, top = BUTTONS["play"]
        paint_bmp(self.skin_file("btn_play_up"), (200, 10, 20), 0, 0, 30, 26)
        self.start()
        seen = self.see(lambda p: p.at(left + 15, top + 13) == (200, 10, 20), "the new picture")
        self.assertEqual(set(seen.part(left, top, 30, 26)), {(200, 10, 20)})
        self.assertTrue(seen.shows(self.bitmap("btn_stop_up"), *BUTTONS["stop"]))
        self.end()

    @odd
    def test_without_a_bitmap_there_is_a_window_and_a_line_in_the_log(self):
        self.start()
        self.end()
        os.remove(self.skin_file("9"))
        self.player = self.start_program("--device", "silent", media("wav_s16_44100_stereo.wav"))
        self.answer(self.plain_box())  # which names the picture
        self.shown_window = self.window_of(self.player)
        # What comes before it is there, what comes behind it is not.
        seen = self.see(lambda p: p.at(*GROUND) == self.bitmap("main").at(*GROUND), "the ground")
        self.assertFalse(seen.shows(self.bitmap("btn_play_up"), *BUTTONS["play"]))
        self.assertRegex(self.read("db/err.log"), b"File not found: [^,]*9.bmp,53,Player,Load")
        self.assertFalse(os.path.exists(self.skin_file("9")))
        self.end()

    def tooltip(self):
        """The picture of the tooltip under the pointer, once it shows."""
        def tips():
            return [window for window in self.shown("--class", "tovik") if "TYPE_TOOLTIP" in
                    self.tool("xprop", "-id", window, "_NET_WM_WINDOW_TYPE").stdout]

        return self.tool_bytes("import", "-silent", "-window", self.first(tips, "the tooltip"),
                               "-depth", "8", "rgb:-")

    def test_another_language_shows_other_words(self):
        looks = {}
        for language in ("English", "Slovenian", "English again"):
            self.start()
            fields = self.picture().part(289, 58, 43, 78)
            self.mouse(BUTTONS["play"][0] + 8, BUTTONS["play"][1] + 8)
            looks[language] = fields, self.tooltip()
            self.end()
            self.setting(b"CLNG", b"Slovenian" if language == "English" else b"English")
        self.assertNotEqual(looks["English"][0], looks["Slovenian"][0])
        self.assertNotEqual(looks["English"][1], looks["Slovenian"][1])
        self.assertEqual(looks["English"], looks["English again"])


if __name__ == "__main__":
    unittest.main()
