# SPDX-License-Identifier: GPL-3.0-or-later
"""The window on an X server: on two screens of different density, cut along its picture with and
without a compositing manager, and what a dense screen leaves in the data folder."""
import ctypes
import os
import re
import signal
import unittest

from program import LIMIT, ProgramTest, media

SIZE = (470, 312)  # of the window, in skin pixels
SONG = media("wav_s16_44100_stereo.wav")
SCREEN = (1500, 1000)  # one of two, side by side
WHITE = b"\xff\xff\xff"
BITMAPS = 107 + 17  # of the two windows


class Screens(ProgramTest):
    def geometry(self):
        """Left, top, width and height of the window, in pixels of the screen."""
        said = self.tool("xwininfo", "-id", self.main).stdout
        return tuple(int(re.search(words + r": +(-?\d+)", said).group(1))
                     for words in ("left X", "left Y", "Width", "Height"))

    def outline(self):
        said = self.tool("xwininfo", "-shape", "-id", self.main).stdout
        return tuple(map(int, re.search(r"extents: +(\d+)x(\d+)\+0\+0", said).groups()))

    def is_density(self, factor):
        size = tuple(side * factor for side in SIZE)
        return self.geometry()[2:] == size and self.outline() == size

    def move(self, left):
        self.tool("xdotool", "windowmove", self.main, str(left), "60")
        self.wait_until(lambda: self.geometry()[0] == left, "the move")

    def corners(self):
        """The share of the ground's white in each corner of the window."""
        left, top, width, height = self.geometry()
        side = 16 * width // SIZE[0]
        shares = []
        for x in (left, left + width - side):
            for y in (top, top + height - side):
                pixels = self.tool_bytes("import", "-silent", "-window", "root", "-crop",
                                         f"{side}x{side}+{x}+{y}", "-depth", "8", "rgb:-")
                shares.append(pixels.count(WHITE) / side ** 2)
        return shares

    def start_two_screens(self, densities):
        self.start_screen("-wr", "-screen", "0", "{}x{}x24".format(2 * SCREEN[0], SCREEN[1]))
        for number, (name, output) in enumerate((("left", "screen"), ("right", "none"))):
            self.tool("xrandr", "--setmonitor", name, "{}/300x{}/200+{}+0".format(
                *SCREEN, number * SCREEN[0]), output)
        self.start_window_manager()
        self.environment["QT_SCREEN_SCALE_FACTORS"] = ";".join(map(str, densities))
        self.start_shown(SONG)

    def test_a_window_fits_the_screen_that_it_comes_to(self):
        self.start_two_screens((1, 2))
        self.wait_until(lambda: all(self.corners()), "the first picture")
        corners = self.corners()
        for left, factor in ((100, 1), (SCREEN[0] + 100, 2), (100, 1)):
            self.move(left)
            self.wait_until(lambda factor=factor: self.is_density(factor), f"density {factor}")
            # Cut along its picture, nothing of it cut away.
            self.wait_until(lambda: all(abs(one - other) < 0.06 for one, other in
                                        zip(corners, self.corners())), "the corners")
        self.move(SCREEN[0] + 100)
        self.wait_until(lambda: self.is_density(2), "density 2")
        self.tool("xdotool", "mousemove", "--window", self.main, "470", "600", "mousemove",
                  "--window", self.main, str(2 * 434), str(2 * 18), "click", "1")
        self.assertEqual(self.player.wait(LIMIT), 0)

    def test_a_window_between_two_screens_stands_still(self):
        self.start_two_screens((2, 1))
        self.move(100)
        self.wait_until(lambda: self.is_density(2), "density 2")
        # Its middle is on the right screen if it is large, and on the left one if it is small.
        for left in range(SCREEN[0] - 500, SCREEN[0] - 200, 30):
            self.move(left)
            seen = {self.geometry() for _ in range(10)}
            self.assertLessEqual(len(seen), 2, "it changes for ever")
            self.assertEqual({place[0] for place in seen}, {left})
        self.move(SCREEN[0] + 20)
        self.wait_until(lambda: self.is_density(1), "density 1")
        self.end_shown()

    def pixels(self, *words):
        """Tuples of three or four channels."""
        channels = 4 if words[-1].startswith("rgba") else 3
        values = iter(self.tool_bytes(*words))
        return list(zip(*[values] * channels))

    def ideal(self, scale):
        """The window as it would be blended: its colours and their alpha."""
        shot = self.path(f"shot-{scale}.png")
        display = self.environment.pop("DISPLAY")
        self.environment.update(QT_QPA_PLATFORM="offscreen", QT_SCALE_FACTOR=scale)
        result = self.run_program("--screenshot", shot)
        self.environment["DISPLAY"] = display
        del self.environment["QT_QPA_PLATFORM"]
        self.assertEqual(result.returncode, 0, result.stderr)
        return self.pixels("convert", shot, "-depth", "8", "rgba:-")

    def on_screen(self):
        left, top, width, height = self.geometry()
        return self.pixels("import", "-silent", "-window", "root", "-crop",
                           f"{width}x{height}+{left}+{top}", "-depth", "8", "rgb:-")

    def start_at(self, scale):
        """The window on a white ground, once all of it is there."""
        ideal = self.ideal(scale)
        self.player = self.start_program("--device", "silent")
        self.main = self.window_of(self.player)
        # Gone from the first picture is what no pixel has before it is painted.
        self.wait_until(lambda: self.tool_bytes(
            "import", "-silent", "-window", self.main, "-crop", "60x20+20+20", "-depth", "8",
            "rgb:-").strip(b"\0\xff"), "the first picture")
        return ideal

    def test_without_a_compositing_manager_the_outline_has_no_black_pixels(self):
        self.start_screen("-wr")
        for scale in ("1.25", "1.5", "2"):
            with self.subTest(scale=scale):
                ideal = self.start_at(scale)
                self.wait_until(lambda: len(self.on_screen()) == len(ideal), "the size")
                wrong, between = [], 0
                for (*colour, alpha), seen in zip(ideal, self.on_screen()):
                    between += 0 < alpha < 255
                    if alpha < 128 and seen != (255, 255, 255):
                        wrong.append((alpha, colour, seen))
                    elif 128 <= alpha < 255 and any(
                            abs(one - other) > 3 for one, other in zip(colour, seen)):
                        wrong.append((alpha, colour, seen))
                self.assertEqual(wrong, [])
                self.assertEqual(between > 0, scale != "2", "pixels that are half there")
                self.end_shown()

    def test_what_is_half_there_is_left_to_a_compositing_manager(self):
        self.start_screen("-wr")
        server = ctypes.CDLL("libX11.so.6")
        for function in ("XOpenDisplay", "XInternAtom", "XDefaultRootWindow"):
            getattr(server, function).restype = ctypes.c_ulong
        display = ctypes.c_void_p(server.XOpenDisplay(self.environment["DISPLAY"].encode()))
        self.stack.callback(server.XCloseDisplay, display)
        window = ctypes.c_ulong(server.XDefaultRootWindow(display))
        selection = ctypes.c_ulong(server.XInternAtom(display, b"_NET_WM_CM_S0", 0))
        server.XSetSelectionOwner(display, selection, window, ctypes.c_ulong(0))
        server.XSync(display, 0)
        ideal = self.start_at("1.5")
        faint = [seen for (*_, alpha), seen in zip(ideal, self.on_screen()) if 0 < alpha < 128]
        self.assertGreater(len(faint), 20)
        self.assertNotIn((255, 255, 255), faint, "cut off")
        empty = [seen for (*_, alpha), seen in zip(ideal, self.on_screen()) if alpha == 0]
        self.assertEqual(set(empty), {(255, 255, 255)})
        self.end_shown()

    def test_a_dense_screen_changes_nothing_in_the_data_folder(self):
        self.environment["QT_QPA_PLATFORM"] = "offscreen"
        folders = {}
        for scale in ("1", "2"):
            self.environment["QT_SCALE_FACTOR"] = scale
            self.environment["XDG_DATA_HOME"] = self.path("share-" + scale)
            player = self.start_program("--device", "silent", SONG)
            self.wait_until(lambda: os.path.exists(self.data("skins/CurrentSkin/main.bmp")), "the skin")
            player.send_signal(signal.SIGTERM)
            self.assertEqual(player.wait(LIMIT), 0)
            folders[scale] = {}
            for folder, _, names in os.walk(self.data("skins")):
                for name in names:
                    path = os.path.join(folder, name)
                    with open(path, "rb") as file:
                        folders[scale][os.path.relpath(path, self.data(""))] = file.read()
        self.assertEqual(folders["1"], folders["2"])
        bitmaps = [path for path in folders["2"] if path.lower().endswith(".bmp")]
        self.assertEqual(len(bitmaps), BITMAPS)


if __name__ == "__main__":
    unittest.main()
