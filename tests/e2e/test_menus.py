# SPDX-License-Identifier: GPL-3.0-or-later
"""The menus: who pops them up, what mouse and keys do in them, how they look."""
import re
import signal
import time
import unittest

from program import LIMIT, ProgramTest

# Skin pixels.
BACKGROUND = (10, 60)
LIST = (350, 280)
SPECTRUM = (200, 85)
HIGHLIGHT = b"\x80\x80\xc0"
NAVY = b"\x00\x00\x80"

# Where entries stand in their menu, from the top, separators not counted.
MAIN = ("About", "Play", "Main", "EQ", "Playlist", "Rip", "Radio", "Preferences", "Playback",
        "Options", "Exit")
OPTIONS = ("Top", "Elapsed", "Remaining", "Repeat", "Shuffle", "Crossfade", "Silence")


class Menus(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()

    def start(self, scale=1):
        self.scale = scale
        self.environment["QT_SCALE_FACTOR"] = str(scale)
        self.player = self.start_program("--device", "silent")
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        time.sleep(0.3)  # the saved list is read

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def saved(self, key):
        found = re.search(rb"<%s>([^<]*)</%s>" % (key, key), self.read("db/settings.xml"))
        return found.group(1)

    def menus(self):
        """The menus that are shown."""
        return [window for window in self.shown("--class", "tovik")
                if '"player"' not in self.tool("xprop", "-id", window, "WM_WINDOW_ROLE").stdout]

    def wait_for_menus(self, count):
        self.wait_until(lambda: len(self.menus()) == count, f"{count} menus")

    def right_click(self, place):
        self.tool("xdotool", "mousemove", "--window", self.shown_window,
                  *(str(coordinate * self.scale) for coordinate in place), "click", "3")
        self.wait_for_menus(1)

    def key(self, *keys):
        for key in keys:
            self.tool("xdotool", "key", key)

    def choose(self, menu, entry):
        """By the keys, from an entry that none is selected in."""
        self.key(*["Down"] * (menu.index(entry) + 1))

    def open_options(self):
        self.right_click(BACKGROUND)
        self.choose(MAIN, "Options")
        self.key("Right")
        self.wait_for_menus(2)

    def pixels(self, window):
        return self.tool_bytes("import", "-silent", "-window", window, "-depth", "8", "rgb:-")

    def wait_for_saved(self, key, value):
        self.wait_until(lambda: self.saved(key) == value, f"{key} {value}")

    def test_right_click_shows_the_menu_and_escape_takes_it_away(self):
        self.start()
        self.right_click(BACKGROUND)
        menu = self.menus()[0]
        self.wait_until(lambda: NAVY in self.pixels(menu), "the menu to be painted")
        self.assertNotIn(HIGHLIGHT * 20, self.pixels(menu))
        self.key("Down")
        self.choose(MAIN, "Play")
        self.wait_until(lambda: HIGHLIGHT * 20 in self.pixels(menu), "the selected look")
        self.keep_screenshot("menu-main.png")
        self.key("Escape")
        self.wait_for_menus(0)
        self.end()

    def test_an_entry_acts_and_its_mark_follows(self):
        self.start()
        before = self.saved(b"RPT")
        self.open_options()
        unmarked = self.pixels(self.menus()[-1])
        self.choose(OPTIONS[1:], "Repeat")  # the first is selected already
        self.key("Return")
        self.wait_for_menus(0)
        self.open_options()
        self.keep_screenshot("menu-options.png")
        self.assertNotEqual(self.pixels(self.menus()[-1]), unmarked)
        self.key("Escape", "Escape")
        self.wait_for_menus(0)
        self.end()
        self.assertNotEqual(self.saved(b"RPT"), before)

    def test_elapsed_and_remaining_are_a_pair(self):
        self.start()
        self.open_options()
        self.choose(OPTIONS[1:], "Remaining")
        self.key("Return")
        self.wait_for_menus(0)
        self.end()
        self.assertEqual(self.saved(b"TMD"), b"1")

    def test_the_mouse_chooses_exit(self):
        self.start()
        self.right_click(BACKGROUND)
        place = self.tool("xdotool", "getwindowgeometry", "--shell", self.menus()[0]).stdout
        height = int(re.search(r"HEIGHT=(\d+)", place).group(1))
        self.tool("xdotool", "mousemove", "--window", self.menus()[0], "60", str(height - 12),
                  "click", "1")
        self.assertEqual(self.player.wait(LIMIT), 0)

    def test_lists_spectrum_and_keyboard_have_their_menus(self):
        self.start()
        for place, name in ((LIST, "list"), (SPECTRUM, "spectrum")):
            with self.subTest(name):
                self.right_click(place)
                self.keep_screenshot(f"menu-{name}.png")
                self.key("Escape")
                self.wait_for_menus(0)
        self.key("Menu")
        self.wait_for_menus(1)
        self.key("Escape")
        self.wait_for_menus(0)
        self.end()

    def test_the_menu_of_the_quick_list_deletes_its_row(self):
        self.start()
        self.right_click((350, 180))  # the only row
        self.key("Down", "Down", "Return")
        self.wait_for_menus(0)
        self.end()
        self.assertNotIn(b"welcome", self.read("db/autosave.m3u"))

    def test_a_changed_accelerator_is_kept_and_acts(self):
        self.start()
        self.end()
        head = b"\0[Pelmo-Menus-Shortcuts]\0[V-1-0-0]\0"
        path = self.data("db/shortcuts.dat")
        with open(path, "wb") as file:
            file.write(head + b"K\0mnuExit\0Ctrl+Shift+Q\0")
        self.start()
        self.key("ctrl+shift+q")
        self.assertEqual(self.player.wait(LIMIT), 0)
        self.assertEqual(self.read("db/shortcuts.dat"), head + b"K\0mnuExit\0Ctrl+Shift+Q\0")

    def test_a_foreign_file_of_shortcuts_is_left_and_logged(self):
        self.start()
        self.end()
        with open(self.data("db/shortcuts.dat"), "wb") as file:
            file.write(b"not ours")
        self.start()
        self.end()
        self.assertEqual(self.read("db/shortcuts.dat"), b"not ours")
        self.assertIn(b"shortcuts.dat", self.read("db/err.log"))

    def test_menus_look_right_in_both_languages_and_at_scale_two(self):
        self.start()
        self.end()
        for language in ("English", "Slovenian"):
            self.setting(b"CLNG", language.encode())
            for scale in (1, 2):
                with self.subTest(language=language, scale=scale):
                    self.start(scale)
                    self.right_click(BACKGROUND)
                    self.choose(MAIN, "Playback")
                    self.key("Right")
                    self.wait_for_menus(2)
                    self.keep_screenshot(f"menu-{language}-{scale}.png")
                    self.assertIn(HIGHLIGHT * 20 * scale, self.pixels(self.menus()[0]))
                    self.key("Escape", "Escape")
                    self.end()


if __name__ == "__main__":
    unittest.main()
