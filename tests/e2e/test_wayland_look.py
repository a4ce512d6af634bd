# SPDX-License-Identifier: GPL-3.0-or-later
"""The player on a Wayland compositor, without X: weston, once on no screen at all and once in a
window of a private X server, where it has a pointer."""
import glob
import os
import signal
import subprocess
import unittest

from compositor import SOCKET, Compositor
from pictures import Picture
from program import LIMIT, ProgramTest, media

GROUND = (64, 96, 128)
SHELL = "background-image=\nbackground-color=0xff406080\n"
SIZE = (470, 312)
TABS = {"main": 122, "equalizer": 146, "playlist": 170, "ripper": 194, "radio": 218}


class Wayland(Compositor, ProgramTest):
    def start_output(self, backend, *options, scale=1, size=(1024, 768)):
        self.output = tuple(scale * side for side in size)
        self.start_compositor(backend, *options, f"--width={size[0]}", f"--height={size[1]}",
                              f"--scale={scale}", shell=SHELL)

    def start(self, scale=1, **more):
        """The player where it finds no X, or what the test says is there."""
        self.scale = scale
        environment = self.environment
        self.environment = {**environment, "WAYLAND_DISPLAY": SOCKET}
        self.environment.pop("DISPLAY", None)
        self.environment.update(more)
        self.player = self.start_program("--device", "silent", media("wav_s16_44100_stereo.wav"))
        self.environment = environment
        self.wait_until(lambda: self.player.poll() is not None or self.seen(), "the window")
        self.assertIsNone(self.player.poll())

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        said = self.player.communicate(timeout=LIMIT)[1].decode()
        self.assertEqual(self.player.returncode, 0, said)

    def shoot(self):
        """What the compositor shows, as bytes of pixels; it is asked itself where there is no X."""
        if "DISPLAY" in self.environment:
            return self.tool_bytes("import", "-silent", "-window", "root", "-crop",
                                   "{}x{}+0+0".format(*self.output), "-depth", "8", "rgb:-")
        for old in glob.glob(self.path("wayland-screenshot*.png")):
            os.remove(old)
        subprocess.run(["weston-screenshooter"], cwd=self.folder, timeout=LIMIT, check=False,
                       env={**self.environment, "WAYLAND_DISPLAY": SOCKET},
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        shots = glob.glob(self.path("wayland-screenshot*.png"))
        return self.tool_bytes("convert", shots[0], "-alpha", "off", "-depth", "8",
                               "rgb:-") if shots else b""

    def seen(self):
        """Left and top of the window and its picture; None as long as there is none."""
        pixels, stride = self.shoot(), 3 * self.output[0]
        ground, (width, height) = bytes(GROUND), (self.scale * side for side in SIZE)
        rows = [pixels[at:at + stride] for at in range(0, len(pixels), stride)]
        # The pointer is on the picture, too, but it is small.
        filled = [y for y, row in enumerate(rows)
                  if len(row) - len(row.replace(ground, b"")) < stride - 3 * 60]
        if not filled or filled[-1] - filled[0] + 1 != height:
            return None
        top = filled[0]
        middle = rows[top + height // 2]
        left = next(x for x in range(0, stride, 3) if middle[x:x + 3] != ground)
        if middle[left + 3 * width - 3:left + 3 * width + 3].find(ground) != 3:
            return None
        values = iter(b"".join(row[left:left + 3 * width] for row in rows[top:top + height]))
        return left // 3, top, Picture(width, height, list(zip(values, values, values)))

    def picture(self):
        return self.first(lambda: list(filter(None, [self.seen()])), "the window")[2]

    def place(self):
        seen = self.seen()
        return seen[:2] if seen else None

    def chosen_tab(self):
        seen = self.picture()
        found = []
        for tab, left in TABS.items():
            inside = seen.part(left * self.scale, 9 * self.scale, 22 * self.scale, 22 * self.scale)
            amber = sum(red > 200 and 100 < green < 190 and blue < 80 for red, green, blue in inside)
            if amber > 4 * self.scale:
                found.append(tab)
        return found

    def look(self):
        """The window is there as it is on X: with alpha instead of a mask."""
        seen = self.picture()
        self.assertEqual(self.chosen_tab(), ["main"])
        for corner in ((0, 0), (seen.width - 1, 0), (0, seen.height - 1)):
            self.assertEqual(seen.at(*corner), GROUND)
        holes = sum(pixel == GROUND for pixel in seen.pixels)
        self.assertGreater(holes, 500 * self.scale ** 2)
        self.assertLess(holes, 4000 * self.scale ** 2)
        black = sum(pixel == (0, 0, 0) for pixel in seen.part(0, 0, 12 * self.scale,
                                                              12 * self.scale))
        self.assertEqual(black, 0, "a fringe at the corner")

    def test_shows_itself_without_a_screen(self):
        self.start_output("headless", "--debug")
        self.start()
        self.look()
        self.end()
        # What a compositor denies (a place) keeps nothing from starting, and is no failure.
        self.setting(b"X", b"4500")
        self.setting(b"Y", b"3000")
        self.start()
        self.end()
        self.assertFalse(os.path.exists(self.data("db/err.log")) and self.read("db/err.log"))

    def test_follows_the_density_of_the_output(self):
        self.start_output("headless", "--debug", scale=2)
        self.start(2)
        self.look()
        self.look_for_its_own_pixels()
        self.end()

    def look_for_its_own_pixels(self):
        """It is drawn at that size, not enlarged by the compositor: the transport's buttons are
        those of a window on no screen."""
        path = self.path("shot.png")
        result = self.run_program("--screenshot", path, env={
            **self.environment, "QT_QPA_PLATFORM": "offscreen", "QT_SCALE_FACTOR": "2"})
        self.assertEqual(result.returncode, 0, result.stderr)
        place = (112, 540, 260, 60)
        values = iter(self.tool_bytes("convert", path, "-alpha", "off", "-crop",
                                      "{2}x{3}+{0}+{1}".format(*place), "-depth", "8", "rgb:-"))
        pairs = list(zip(zip(values, values, values), self.picture().part(*place)))
        self.assertEqual(len(pairs), place[2] * place[3])
        wrong = sum(one != other for one, other in pairs)
        self.assertLess(wrong, len(pairs) // 50)

    def test_where_x_is_offered_too_it_speaks_wayland(self):
        self.start_output("headless", "--debug")
        self.start_screen()
        display = self.environment.pop("DISPLAY")  # the test's eye is the compositor's
        self.start(DISPLAY=display, XDG_SESSION_TYPE="wayland")
        self.end()
        # By hand, or where the session is one of X, it is a window there.
        self.environment["DISPLAY"] = display
        for chosen in ({"QT_QPA_PLATFORM": "xcb"}, {"XDG_SESSION_TYPE": "x11"}):
            self.environment.update(WAYLAND_DISPLAY=SOCKET, **chosen)
            self.start_shown()
            self.end_shown()
            for name in chosen:
                del self.environment[name]
        # A compositor that has gone leaves X.
        self.environment["WAYLAND_DISPLAY"] = "gone"
        self.start_shown()
        self.end_shown()

    def mouse(self, x, y, *actions):
        left, top = self.place()
        for place in ((left + 235, top + 300), (left + x, top + y)):
            self.tool("xdotool", "mousemove", *map(str, place), "sleep", "0.1")
        if actions:
            self.tool("xdotool", *actions)

    def test_clicks_and_drags(self):
        # Larger than the compositor: it learns of the pointer when that comes in.
        self.start_screen("-screen", "0", "1100x900x24")
        self.start_output("x11")
        self.start()
        self.tool("xdotool", "mousemove", "1090", "890", "sleep", "0.1")
        self.look()
        for tab in ("equalizer", "radio", "playlist", "ripper", "main"):
            self.mouse(TABS[tab] + 11, 20, "click", "1")
            self.wait_until(lambda tab=tab: self.chosen_tab() == [tab], tab)
        # The compositor moves the window; the program cannot.
        left, top = self.place()
        self.mouse(330, 20, "mousedown", "1", "sleep", "0.1",
                   *["mousemove_relative", "15", "10", "sleep", "0.03"] * 8, "mouseup", "1")
        self.wait_until(lambda: (self.place() or [0])[0] > left + 60, "the drag")
        moved = self.place()
        self.assertGreater(moved[1], top + 40)
        # It has let go, and clicks land where the window is now.
        self.mouse(TABS["equalizer"] + 11, 20, "click", "1")
        self.wait_until(lambda: self.chosen_tab() == ["equalizer"], "the equalizer")
        self.assertEqual(self.place(), moved)
        self.mouse(434, 18, "click", "1")
        self.assertEqual(self.player.wait(LIMIT), 0)


if __name__ == "__main__":
    unittest.main()
