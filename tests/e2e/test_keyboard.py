# SPDX-License-Identifier: GPL-3.0-or-later
"""The player with the keyboard alone, under a window manager."""
import re
import signal
import unittest

from program import LIMIT, ProgramTest, media

ACCENT = (255, 156, 0)
STOPS = 40  # more than any panel has


class Keyboard(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.player = self.start_program("--device", "silent", media("wav_s16_44100_stereo.wav"))
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.tool("xdotool", "mousemove", "--window", self.shown_window, "350", "285")

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def saved(self, key):
        found = re.search(rb"<%s>([^<]*)</%s>" % (key, key), self.read("db/settings.xml"))
        return found.group(1)

    def key(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", *keys)

    def ringed(self, left, top):
        """Whether the ring's corner is at the upper left corner of what stands there."""
        raw = self.tool_bytes("import", "-silent", "-window", self.shown_window, "-crop",
                              f"1x1+{left - 1}+{top - 1}", "-depth", "8", "rgb:-")
        return tuple(raw) == ACCENT

    def tab_to(self, left, top, key="Tab"):
        for _ in range(STOPS):
            self.key(key)
            try:
                return self.wait_short(lambda: self.ringed(left, top))
            except TimeoutError:
                pass
        self.fail(f"no stop at {left}, {top}")

    @staticmethod
    def wait_short(condition, looks=3):
        for _ in range(looks):
            if condition():
                return
        raise TimeoutError

    def test_tab_reaches_a_bar_and_keys_move_it(self):
        self.key("Tab")
        self.wait_until(lambda: self.ringed(122, 9), "the ring round the first tab")
        self.keep_screenshot("ring.png")
        self.tab_to(26, 211)
        self.key("Home", "Prior", "Prior", "Prior", "Prior", "Up", "Up", "Up", "Down")
        self.tab_to(172, 216)
        self.key("Home", "Next", "Up")
        self.end()
        self.assertEqual((self.saved(b"CVL"), self.saved(b"BLV")), (b"42", b"-75"))

    def test_enter_switches_the_panel_and_space_a_mode(self):
        self.tab_to(146, 9)  # the equalizer's tab
        self.key("Return")
        self.tab_to(40, 80)  # its first slider
        self.keep_screenshot("ring-on-slider.png")
        self.key("End")
        self.key("1")
        self.tab_to(22, 242)  # shuffle
        self.key("space")
        self.end()
        self.assertEqual(self.saved(b"SHF"), b"1")
        self.assertRegex(self.read("db/settings.xml"), rb'<CEQ Value="12/0/0/')

    def test_a_field_is_left_by_escape_and_by_tab(self):
        self.key("3")
        self.tab_to(320, 242)
        self.key("x", "2")
        self.keep_screenshot("ring-on-field.png")
        self.key("Escape")
        self.wait_until(lambda: not self.ringed(320, 242), "the ring to go")
        self.tab_to(320, 242, "shift+Tab")
        self.key("Tab")
        self.wait_until(lambda: not self.ringed(320, 242), "the ring to go on")
        self.key("2")
        self.tab_to(40, 80)
        self.end()


if __name__ == "__main__":
    unittest.main()
