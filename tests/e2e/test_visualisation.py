# SPDX-License-Identifier: GPL-3.0-or-later
"""What moves with the music: the menu that chooses it, and when it rests."""
import os
import re
import signal
import time
import unittest
import wave

from program import LIMIT, ProgramTest

SPECTRUM = (112, 74, 166, 24)  # left, top, width, height in the window
NONE, BARS = 1, 2  # steps down in the menu
SECONDS = 60  # of noise, longer than any test
WHITE = b"\xff\xff\xff"


class Visualisation(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        noise = self.path("noise.wav")
        with wave.open(noise, "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(44100)
            file.writeframes(os.urandom(2 * 44100 * SECONDS))
        self.player = self.start_program("--device", "silent", noise)
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        time.sleep(0.5)

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def area(self):
        left, top, width, height = SPECTRUM
        return self.tool_bytes("import", "-silent", "-window", self.shown_window, "-crop",
                               f"{width}x{height}+{left}+{top}", "-depth", "8", "rgb:-")

    def choose(self, steps):
        self.tool("xdotool", "mousemove", "--window", self.shown_window, "200", "85", "click",
                  "3")
        self.wait_until(lambda: len(self.shown("--class", "tovik")) > 1, "the menu")
        self.tool("xdotool", "key", *["Down"] * steps, "Return")
        self.wait_until(lambda: len(self.shown("--class", "tovik")) == 1, "the menu to go")
        self.tool("xdotool", "mousemove", "--window", self.shown_window, "10", "60")

    def moves(self):
        first = self.area()
        end = time.monotonic() + 1
        while time.monotonic() < end:
            if self.area() != first:
                return True
        return False

    def switches(self):
        """How often the program was woken so far."""
        with open(f"/proc/{self.player.pid}/status", encoding="ascii") as file:
            return int(re.search(r"\nvoluntary_ctxt_switches:\s*(\d+)", file.read()).group(1))

    def test_the_menu_switches_bars_and_none(self):
        self.assertFalse(self.moves())
        bare = self.area()
        self.choose(BARS)
        self.wait_until(lambda: self.area() != bare, "the bars")
        self.assertTrue(self.moves())
        self.wait_until(lambda: WHITE * 4 in self.area(), "a mark")
        self.keep_screenshot("spectrum.png")
        self.choose(NONE)
        self.wait_until(lambda: self.area() == bare, "the bare window")
        self.assertFalse(self.moves())
        self.choose(BARS)
        self.end()
        self.assertIn(b"<CVP>0</CVP>", self.read("db/settings.xml"))

    def test_pause_stands_still_and_stop_clears(self):
        bare = self.area()
        self.choose(BARS)
        self.wait_until(self.moves, "the bars")
        self.tool("xdotool", "key", "c")
        time.sleep(0.3)
        self.assertFalse(self.moves())
        self.assertNotEqual(self.area(), bare)
        self.tool("xdotool", "key", "c")
        self.wait_until(self.moves, "the bars after the pause")
        self.tool("xdotool", "key", "v")
        self.wait_until(lambda: self.area() == bare, "the bare window")
        self.end()

    def test_minimised_it_rests_and_goes_on_when_it_is_back(self):
        self.choose(BARS)
        self.wait_until(self.moves, "the bars")
        before = self.switches()
        time.sleep(2)
        shown = self.switches() - before
        self.tool("xdotool", "windowminimize", "--sync", self.shown_window)
        time.sleep(0.5)
        before = self.switches()
        time.sleep(2)
        self.assertLess(self.switches() - before, shown - 30)  # of 50 ticks
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.wait_until(self.moves, "the bars after the return")
        self.end()


if __name__ == "__main__":
    unittest.main()
