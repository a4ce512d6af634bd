# SPDX-License-Identifier: GPL-3.0-or-later
"""The preferences by mouse and keyboard, on a real screen, through a restart."""
import re
import signal
import unittest

from program import LIMIT, ProgramTest, media

TAB_X, TAB_Y = 242 + 15, 9 + 8  # of the preferences, in the window
PLAYBACK, RIPPER, SHORTCUTS, COMFORT = 2, 3, 6, 7  # pages, counted from the first


class Preferences(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.begin()

    def begin(self):
        self.player = self.start_program("--device", "silent", media("wav_s16_44100_stereo.wav"))
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def saved(self, key):
        found = re.search(rb"<%s>([^<]*)</%s>" % (key, key), self.read("db/settings.xml"))
        return found.group(1)

    def key(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", "--delay", "30", *keys)

    def opened(self, title="Preferences"):
        dialog = self.box(title)
        self.tool("xdotool", "windowactivate", "--sync", dialog)
        return dialog

    def page(self, number):
        self.key(*["ctrl+Tab"] * number)

    def closed(self, title="Preferences"):
        self.wait_until(lambda: not self.boxes(title), "the end of the dialog")

    def on_top(self):
        return "_NET_WM_STATE_ABOVE" in self.tool(
            "xprop", "-id", self.shown_window, "_NET_WM_STATE").stdout

    def open_by_mouse(self):
        self.tool("xdotool", "mousemove", "--window", self.shown_window, str(TAB_X), str(TAB_Y),
                  "click", "1")
        return self.opened()

    def test_changes_act_at_once_and_outlive_a_restart(self):
        self.open_by_mouse()
        self.key("alt+w")  # always on top
        self.page(PLAYBACK)
        self.key("alt+s", "alt+r")  # shuffle and repeat
        self.key("alt+t", "Home", "Right", "Right", "Right")  # the time of a crossfade
        self.assertFalse(self.on_top())
        self.key("Return")
        self.closed()
        self.wait_until(self.on_top, "the window on top of others")
        kept = {b"ASOT": b"1", b"SHF": b"1", b"RPT": b"1", b"CFDT": b"3", b"CFD": b"0"}
        self.assertEqual({key: self.saved(key) for key in kept}, kept)
        self.end()
        self.begin()
        self.wait_until(self.on_top, "the window on top of others")
        self.key("ctrl+p")
        self.opened()
        self.key("alt+w")
        self.page(PLAYBACK)
        self.key("alt+t", "Right", "Return")  # on from what was kept
        self.closed()
        self.wait_until(lambda: not self.on_top(), "the window among others")
        self.assertEqual((self.saved(b"ASOT"), self.saved(b"CFDT")), (b"0", b"4"))
        self.end()
        self.assertEqual((self.saved(b"SHF"), self.saved(b"RPT")), (b"1", b"1"))

    def test_comfort_is_kept_and_a_switch_goes_with_it(self):
        self.end()
        self.COMFORT = None
        self.assertEqual(self.saved(b"CMF"), b"1")  # of a new data folder
        for expected in (b"0", b"1"):
            self.begin()
            self.key("ctrl+p")
            self.opened()
            self.page(COMFORT)
            self.key("alt+b", "alt+w", "space", "Return")  # the first switch alone is otherwise
            self.closed()
            self.assertEqual(self.saved(b"CMF"), expected)
            self.assertEqual(self.saved(b"CMF01"), b"1" if expected == b"0" else b"0")
            self.end()

    def test_a_language_shows_at_once_and_escape_takes_nothing_back(self):
        self.open_by_mouse()
        self.key("alt+p")  # auto play: not kept
        self.key("alt+l", "Down")
        self.opened("Nastavitve")
        self.key("Escape")
        self.closed("Nastavitve")
        self.assertEqual((self.saved(b"CLNG"), self.saved(b"AP")), (b"Slovenian", b"0"))
        self.end()

    def test_the_panels_can_be_switched_when_they_close(self):
        self.open_by_mouse()
        self.key("Escape")
        self.closed()
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        before = self.picture()
        self.key("2")  # the equalizer
        self.wait_until(lambda: self.picture() != before, "another panel")
        self.end()

    def picture(self):
        """The lower half of the window: nothing moves there."""
        return self.tool_bytes("import", "-silent", "-window", self.shown_window, "-crop",
                               "470x120+0+190", "-depth", "8", "rgb:-")

    def test_new_keys_act_at_once_and_after_a_restart(self):
        self.key("6")
        self.opened()
        self.page(SHORTCUTS)
        self.key("Down", "alt+k", "ctrl+shift+b", "Tab", "alt+o")  # for the second row
        self.closed()
        for _ in range(2):
            self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
            self.key("ctrl+shift+b")
            self.opened("About Tovik")
            self.key("Escape")
            self.closed("About Tovik")
            self.end()
            self.assertIn(b"K\0mnuAbout\0Ctrl+Shift+B\0", self.read("db/shortcuts.dat"))
            self.begin()
        self.end()

    def test_the_program_ends_also_while_a_dialog_holds_it_up(self):
        self.open_by_mouse()
        self.end()

    def test_about_opens_by_its_key(self):
        self.key("F1")
        self.opened("About Tovik")
        self.key("Return")
        self.closed("About Tovik")
        self.end()


if __name__ == "__main__":
    unittest.main()
