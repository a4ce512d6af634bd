# SPDX-License-Identifier: GPL-3.0-or-later
"""Windows with comfort: minimising, the icon in the tray, kept places, the small title."""
import re
import subprocess
import time
import unittest
import wave

from notifier import NotifierTest
from program import LIMIT

MINIMISE = (413, 18)  # of the main window


class KindWindows(NotifierTest):
    COMFORT = "on"

    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()

    def silence(self):
        path = self.path("silence.wav")
        with wave.open(path, "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(8000)
            file.writeframes(bytes(2 * 8000 * 60))
        return path

    def state(self):
        """What the window manager says of the main window."""
        said = self.tool("xprop", "-id", self.main, "WM_STATE").stdout
        return "minimised" if "Iconic" in said else "hidden" if "not found" in said else "shown"

    def place(self, window):
        said = self.tool("xdotool", "getwindowgeometry", "--shell", window).stdout
        return tuple(int(re.search(rf"{name}=(-?\d+)", said).group(1))
                     for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def test_the_window_minimises_and_the_tray_hides(self):
        self.start_bus()
        tray = subprocess.Popen(["trayer", "--edge", "bottom", "--align", "right", "--width", "20"],
                                env=self.environment, stdout=subprocess.DEVNULL,
                                stderr=subprocess.DEVNULL)
        self.stack.callback(tray.wait)
        self.stack.callback(tray.kill)
        self.start_shown(self.silence())
        icon = self.first(lambda: [w for w in self.shown("--class", "tovik") if w != self.main],
                          "the icon")

        def click():
            self.tool("xdotool", "mousemove", "--window", icon, "8", "8", "click", "1")

        click()
        self.wait_until(lambda: self.state() == "hidden", "the window to be hidden")
        time.sleep(0.5)  # two clicks, not a double one
        click()
        self.wait_until(self.player_windows, "the window")
        self.tool("xdotool", "mousemove", "--window", self.main, *map(str, MINIMISE), "click", "1")
        self.wait_until(lambda: self.state() == "minimised", "the window to be minimised")
        click()
        self.wait_until(lambda: self.state() == "shown", "the window")
        self.end_shown()

    def test_windows_come_back_to_their_places(self):
        self.start_shown()
        self.tool("xdotool", "key", "ctrl+w")
        mini = self.first(lambda: self.windows_of_role("mini"), "the mini window")
        self.tool("xdotool", "windowmove", "--sync", mini, "333", "222")
        self.tool("xdotool", "key", "ctrl+w")
        self.wait_until(self.player_windows, "the main window")
        self.tool("xdotool", "key", "ctrl+j")
        dialog = self.box("Jump to track")
        self.tool("xdotool", "windowmove", "--sync", dialog, "123", "77")
        self.tool("xdotool", "windowsize", "--sync", dialog, "530", "340")
        self.wait_until(lambda: b"frmJump2Track.size 530 340" in self.read("db/settings.xml"),
                        "place and size")
        before = self.place(dialog)
        self.end_shown()
        self.start_shown()
        self.tool("xdotool", "key", "ctrl+j")
        dialog = self.box("Jump to track")
        self.wait_until(lambda: self.place(dialog) == before, "the dialog in its place")
        self.tool("xdotool", "windowclose", dialog)
        self.tool("xdotool", "windowactivate", "--sync", self.main)
        self.tool("xdotool", "key", "ctrl+w")
        mini = self.first(lambda: self.windows_of_role("mini"), "the mini window")
        self.assertEqual(self.place(mini)[:2], (333, 222))
        self.end_shown()

    def test_a_window_that_asks_for_files_comes_back_in_its_size(self):
        self.start_shown()
        for expected in (False, True):
            self.tool("xdotool", "windowactivate", "--sync", self.main)
            self.tool("xdotool", "key", "ctrl+f")
            dialog = self.box("Add files")
            self.assertEqual(self.place(dialog)[2:] == (700, 510), expected)
            self.tool("xdotool", "windowsize", "--sync", dialog, "700", "510")
            self.wait_until(lambda: b"openFiles.size 700 510" in self.read("db/settings.xml"),
                            "the size")
            self.tool("xdotool", "windowclose", dialog)
            self.end_shown()
            self.start_shown()
        self.end_shown()

    def test_a_title_is_small_and_in_a_corner(self):
        self.start_shown()
        self.end_shown()
        self.setting(b"OSD", b"1")
        self.start_shown(self.silence())
        popup = self.first(lambda: self.windows_of_role("title"), "the title")
        left, top, width, height = self.place(popup)
        self.assertEqual((left + width, top + height), (1024 - 8, 768 - 8))
        self.assertEqual(height, 32)
        self.assertLess(width, 300)
        self.keep_screenshot("small-title.png")
        # The caption is that of the file, not of the program.
        said = self.tool("xprop", "-id", self.main, "WM_NAME").stdout
        # It goes round.
        self.assertIn("silence.wav", 2 * re.search(r'"(.*)"', said).group(1))
        self.player.kill()
        self.player.wait(LIMIT)


if __name__ == "__main__":
    unittest.main()
