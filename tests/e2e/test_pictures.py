# SPDX-License-Identifier: GPL-3.0-or-later
"""Takes a picture of each menu, each page of the preferences and the small dialogs, in both
languages and at the scales 1 and 2, for somebody to look at; and tests what can be tested of them:
everything fits a screen of 1024 by 600, and is painted."""
import os
import re
import signal
import time
import unittest

from program import ARTEFACTS, LIMIT, ProgramTest

SCREEN = (1024, 600)

# Skin pixels of the window.
BACKGROUND = (10, 60)
SPECTRUM = (200, 85)
QUICK_LIST = (350, 180)
PRESETS = (102, 250)  # of the equalizer's panel
RIPPER = (42, 250)    # of the ripper's panel

# How often Down is pressed for each entry of the main menu that opens another.
OPENING = {"play": 2, "playback": 9, "options": 10}

PAGES = ("general", "types", "playback", "ripper", "streaming", "history", "shortcuts")
LANGUAGES = {"English": ("Preferences", "About Tovik", "Change output path"),
             "Slovenian": ("Nastavitve", "O", "")}


class Pictures(ProgramTest):
    def take(self, language, scale):
        self.scale, self.words = scale, LANGUAGES[language]
        self.prefix = f"{language}-{scale}"
        self.environment["QT_SCALE_FACTOR"] = str(scale)
        self.start_screen("-screen", "0", "x".join(str(side * scale) for side in SCREEN) + "x24")
        self.start_window_manager()
        self.start()
        self.end()
        self.setting(b"CLNG", language.encode())
        self.start()
        self.take_menus()
        self.take_dialogs()
        self.end()

    def start(self):
        self.player = self.start_program("--device", "silent")
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        time.sleep(0.3)  # the saved list is read

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def key(self, *keys):
        self.tool("xdotool", "key", "--delay", "30", *keys)

    def click(self, place, button):
        self.tool("xdotool", "mousemove", "--window", self.shown_window,
                  *(str(coordinate * self.scale) for coordinate in place), "click", str(button))

    def menus(self):
        return [window for window in self.shown("--class", "tovik")
                if '"player"' not in self.tool("xprop", "-id", window, "WM_WINDOW_ROLE").stdout]

    def place(self, window):
        text = self.tool("xdotool", "getwindowgeometry", "--shell", window).stdout
        return [int(re.search(name + r"=(-?\d+)", text).group(1))
                for name in ("X", "Y", "WIDTH", "HEIGHT")]

    def keep(self, name, windows):
        """A picture of these windows and what is round them."""
        time.sleep(0.3)  # whatever fades or moves has come to rest
        for window in windows:
            left, top, width, height = self.place(window)
            with self.subTest(name + " " + self.prefix):
                self.assertGreaterEqual((left, top), (0, 0))
                self.assertLessEqual(left + width, SCREEN[0] * self.scale)
                self.assertLessEqual(top + height, SCREEN[1] * self.scale)
                colours = self.tool("identify", "-format", "%k", self.picture(window)).stdout
                self.assertGreater(int(colours), 8)
        path = self.keep_screenshot(f"look-{self.prefix}-{name}.png")
        self.assertTrue(os.path.exists(path))

    def picture(self, window):
        os.makedirs(ARTEFACTS, exist_ok=True)
        path = self.path("window.png")
        self.tool("import", "-silent", "-window", window, path)
        return path

    def take_menu(self, name, count=1):
        self.wait_until(lambda: len(self.menus()) == count, f"the menu {name}")
        self.keep("menu-" + name, self.menus())
        self.key(*["Escape"] * count)
        self.wait_until(lambda: not self.menus(), "the end of the menus")

    def take_menus(self):
        self.click(BACKGROUND, 3)
        self.take_menu("main")
        for name, downs in OPENING.items():
            self.click(BACKGROUND, 3)
            self.wait_until(lambda: len(self.menus()) == 1, "the menu")
            self.key(*["Down"] * downs, "Right")
            self.take_menu("main-" + name, 2)
        for name, place in (("vis", SPECTRUM), ("list", QUICK_LIST)):
            self.click(place, 3)
            self.take_menu(name)
        for name, panel, place in (("presets", "2", PRESETS), ("rip", "4", RIPPER)):
            self.key(panel)
            time.sleep(0.2)
            self.click(place, 1)
            self.take_menu(name)
        self.key("1")

    def dialog(self, title):
        found = self.box(title)
        self.tool("xdotool", "windowactivate", "--sync", found)
        return found

    def take_dialogs(self):
        preferences, about, _ = self.words
        self.key("F1")
        window = self.dialog(about)
        self.keep("about", [window])
        self.key("Escape")
        self.wait_until(lambda: not self.boxes(about), "the end of the dialog")
        self.key("6")
        window = self.dialog(preferences)
        for page in PAGES:
            self.keep("page-" + page, [window])
            self.key("ctrl+Tab")
        # On the fifth page the first control asks for a folder.
        self.key(*["ctrl+Tab"] * PAGES.index("streaming"), "space")
        self.wait_until(lambda: len(self.menus()) == 2, "the choice of a folder")
        time.sleep(0.5)  # the folders are read
        self.keep("folder", [box for box in self.menus() if box != window])
        self.key("Escape")
        self.wait_until(lambda: len(self.menus()) == 1, "the end of the choice")
        self.key("Escape")
        self.wait_until(lambda: not self.menus(), "the end of the dialog")


def test_of(language, scale):
    return lambda self: self.take(language, scale)


for language in LANGUAGES:
    for scale in (1, 2):
        setattr(Pictures, f"test_{language}_at_scale_{scale}", test_of(language, scale))


if __name__ == "__main__":
    unittest.main()
