# SPDX-License-Identifier: GPL-3.0-or-later
"""The program on a Wayland compositor, which draws into a private X server: so a hand and an eye are
there. Windows are told by what of the empty desktop they cover."""
import time
import unittest

from compositor import SOCKET, Compositor
from notifier import NotifierTest
from program import media

SONG = media("wav_s16_44100_stereo.wav")
MINIMISE = (413, 18)  # of the main window
ENTRY = (60, 73)  # of the menu, for the main panel
PATIENCE = 3  # seconds until an act counts as missed
MAIN, MINI = (470, 312), (146, 125)  # what the windows cover; the mini window's left is cut out


class Wayland(Compositor, NotifierTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_bus()
        self.start_compositor("x11", "--width=760", "--height=520")
        # X11 is there, too, as on most such desktops.
        self.environment["WAYLAND_DISPLAY"] = SOCKET
        self.away()
        self.wait_until(self.desktop_is_there, "the desktop")

    def away(self):
        """To the corner of the desktop, where no window comes: keys go where the pointer is. The
        compositor only adds up moves, and on a busy machine loses some of them: its own pointer
        stops at the edges, so that past two corners it is where the hand is."""
        self.tool("xdotool", "mousemove", "0", "0", "sleep", "0.02", "mousemove", "759", "519",
                  "sleep", "0.02", "mousemove", "750", "510")

    def screen(self, name):
        path = self.path(name)
        self.assertEqual(self.tool("import", "-window", "root", path).returncode, 0)
        return path

    def desktop_is_there(self):
        """Its ground is drawn, and stays."""
        first = self.tool("convert", self.screen("empty.ppm"), "-format", "%k %#", "info:").stdout
        second = self.tool("convert", self.screen("empty.ppm"), "-format", "%k %#", "info:").stdout
        return first == second and int(first.split()[0]) > 10

    def covered(self):
        """(left, top, width, height) of what is not the empty desktop; none: nothing. The pointer
        is sent away each time: the compositor may have missed that it moved. What is narrow is the
        pointer, now or when the desktop was empty."""
        self.away()
        said = self.tool("convert", self.path("empty.ppm"), self.screen("now.ppm"), "-compose",
                         "difference", "-composite", "-colorspace", "gray", "-threshold", "0",
                         "-morphology", "Open", "Rectangle:31x1", "-trim", "-format", "%w %h %X %Y", "info:").stdout
        width, height, left, top = map(int, said.split())
        return None if left < 0 else (left, top, width, height)

    def covers(self, size):
        found = self.covered()
        return found is not None and all(abs(a - b) <= 2 for a, b in zip(found[2:], size))

    def start(self):
        self.player = self.start_program("--device", "silent", SONG)
        self.wait_until(lambda: self.covers(MAIN), "the main window")

    def act_until(self, act, condition, what):
        """Acts, and acts again where nothing comes of it: the compositor may have missed that."""
        def acted():
            act()
            end = time.monotonic() + PATIENCE
            while not condition():
                if time.monotonic() > end:
                    return False
            return True

        self.wait_until(acted, what)

    def click(self, left, top):
        self.away()
        self.tool("xdotool", "mousemove", str(left), str(top), "click", "1")

    def key_until(self, key, condition, what):
        self.act_until(lambda: self.tool("xdotool", "key", key), condition, what)

    def hide(self):
        left, top = self.covered()[:2]
        self.act_until(lambda: self.click(left + MINIMISE[0], top + MINIMISE[1]),
                       lambda: self.covered() is None, "the window to be hidden")

    def pop_up(self):
        """The menu of the tray; returns what it covers."""
        self.host("call", "ContextMenu")
        self.wait_until(self.covered, "the menu")
        return self.covered()

    def choose_entry(self):
        """Of the menu, which goes where a click misses it."""
        left, top = (self.covered() or self.pop_up())[:2]
        self.click(left + ENTRY[0], top + ENTRY[1])

    def test_the_windows_the_tray_and_the_title(self):
        self.start_host("up", "notices")
        self.start()
        self.end_shown()
        self.setting(b"OSD", b"1")
        self.start()
        # The compositor would put the title anywhere: the desktop tells it.
        self.wait_until(lambda: "wav_s16_44100_stereo" in self.host("notices"), "the title")
        left, top, width, height = self.covered()
        self.click(left + width // 2, top + height - 40)
        self.key_until("ctrl+w", lambda: self.covers(MINI), "the mini window")
        self.keep_screenshot("wayland-mini.png")
        self.key_until("ctrl+w", lambda: self.covers(MAIN), "the main window")
        self.item()
        self.hide()
        # The menu needs no window of ours to be there, and does what it says.
        self.pop_up()
        self.keep_screenshot("wayland-tray-menu.png")
        self.key_until("Escape", lambda: self.covered() is None, "the end of the menu")
        self.pop_up()
        self.act_until(self.choose_entry, lambda: self.covers(MAIN), "the main window")
        self.hide()
        self.host("call", "Activate")
        self.wait_until(lambda: self.covers(MAIN), "the main window")
        self.end_shown()


if __name__ == "__main__":
    unittest.main()
