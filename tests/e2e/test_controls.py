# SPDX-License-Identifier: GPL-3.0-or-later
"""Mouse and keys on the player's window."""
import re
import signal
import subprocess
import time
import unittest
import wave

from program import LIMIT, ProgramTest, media

SECONDS = 60
RATE = 8000
WIDTH = 470  # of the window
BAR_LEFT, BAR_WIDTH, BAR_Y = 26, 250, 177  # of the position bar
STRIPE = 3  # columns from the mark's left edge to the amber stripe in its middle


class Controls(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.song = self.path("song.wav")
        with wave.open(self.song, "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(RATE)
            file.writeframes((b"\x00\x10" * 8 + b"\x00\xf0" * 8) * (SECONDS * RATE // 16))

    def start(self, *options):
        self.player = self.start_program(*options, self.song)
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def saved(self, key):
        found = re.search(rb"<%s>([^<]*)</%s>" % (key, key), self.read("db/settings.xml"))
        return found.group(1)

    def mouse(self, x, y, *actions):
        self.tool("xdotool", "mousemove", "--window", self.shown_window, str(x), str(y), *actions)

    def key(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", *keys)

    def place(self):
        """The second that the mark on the position bar stands at; -1 before it is seen."""
        row = self.picture()[3 * (BAR_Y * WIDTH + BAR_LEFT):3 * (BAR_Y * WIDTH + WIDTH)]
        columns = [row[3 * x:3 * x + 3] for x in range(BAR_WIDTH + 2 * STRIPE)]
        amber = [x for x, (red, _, blue) in enumerate(columns) if red > 220 and blue < 90]
        return (amber[0] - STRIPE) * SECONDS / BAR_WIDTH if amber else -1

    def wait_for_place(self, low, high):
        self.wait_until(lambda: low <= self.place() <= high, f"a place from {low} to {high} s")

    def picture(self):
        return self.tool_bytes("import", "-silent", "-window", self.shown_window, "-depth", "8",
                               "rgb:-")

    def test_bars_lamps_wheel_and_digits_are_kept(self):
        self.start("--device", "silent")
        self.mouse(90, 211 + 12, "click", "1")  # half of the volume's bar
        self.mouse(200, 80, "click", "4", "click", "4", "click", "5")
        self.mouse(172 + 7 * 12 + 5, 223, "click", "1")
        self.mouse(40, 60, "click", "--repeat", "2", "--delay", "60", "1")
        self.end()
        self.assertEqual((self.saved(b"CVL"), self.saved(b"BLV"), self.saved(b"TMD")),
                         (b"57", b"75", b"1"))

    def test_the_position_bar_is_dragged(self):
        self.start("--device", "silent")
        self.wait_for_place(0, 10)
        self.mouse(40, BAR_Y, "mousedown", "1")
        self.mouse(100, BAR_Y)
        self.mouse(BAR_LEFT + BAR_WIDTH // 2, BAR_Y)
        time.sleep(1.5)  # a held mark stays where it is
        self.wait_for_place(29, 31)
        self.mouse(BAR_LEFT + BAR_WIDTH // 2, BAR_Y, "mouseup", "1")
        self.wait_for_place(32, 40)  # the clock goes on from there
        self.end()

    def test_keys_seek_also_from_the_quick_list(self):
        self.start("--device", "silent")
        self.wait_for_place(0, 10)
        self.key("Right", "Right", "Right", "Right")
        self.wait_for_place(20, 35)
        self.mouse(350, 230, "click", "1")  # the list has the focus now
        self.key("Right", "Right", "Right", "Right")
        self.wait_for_place(40, 55)
        self.key("Left", "Left", "Left", "Left", "Left", "Left")
        self.wait_for_place(0, 25)
        self.end()

    def test_keys_play_pause_and_stop(self):
        self.start_sound_server()
        self.start()
        for key, sounds in ((None, True), ("c", False), ("c", True), ("v", False), ("x", True)):
            with self.subTest(key=key, sounds=sounds):
                if key:
                    self.key(key)
                self.wait_until(lambda: self.heard() == sounds, "the sound to follow")
        self.end()

    def test_stop_silences_a_module(self):
        self.start_sound_server()
        self.song = media("song.xm")
        self.start()
        self.wait_until(self.heard, "the module")
        self.key("v")
        self.wait_until(lambda: not self.heard(), "silence")
        self.end()

    def test_play_starts_the_first_row_of_a_restored_list(self):
        self.start_sound_server()
        self.start()
        self.end()  # the data folder is there now
        with open(self.data("db/autosave.m3u"), "w", newline="", encoding="utf-8") as file:
            file.write(f"#EXTM3U\r\n#EXTINF:60,Song\r\n{self.song}\r\n")
        self.player = self.start_program()
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        time.sleep(0.5)  # the list is read 100 ms after the start
        self.assertFalse(self.heard())
        self.key("x")
        self.wait_until(self.heard, "the first row")
        self.end()

    def heard(self):
        """Whether the sink plays anything but silence, for a tenth of a second."""
        with subprocess.Popen(["parec", "--raw", "--device=nowhere.monitor", "--latency-msec=20"],
                              env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL) as listener:
            sound = listener.stdout.read(4 * 44100 // 10)
            listener.kill()
        return any(sound)

    def test_keys_change_the_panel(self):
        self.start("--device", "silent")
        self.mouse(100, 305)
        self.wait_for_place(1, 9)
        self.key("v")
        self.wait_for_place(0, 0.5)
        pictures = {}
        for number in "23415":
            seen = {self.steady_picture(), *pictures.values()}
            self.key(number)
            self.wait_until(lambda: self.steady_picture() not in seen, f"panel {number}")
            pictures[number] = self.steady_picture()
            if number == "1":
                self.keep_screenshot("main-panel.png")
                self.key("2")
                self.wait_until(lambda: self.steady_picture() == pictures["2"],
                                "the equalizer's panel again")
        self.end()

    def steady_picture(self):
        """A picture that two looks agree on."""
        before = None
        while (after := self.picture()) != before:
            before = after
        return after

    def test_alt_x_ends_the_program(self):
        self.start("--device", "silent")
        self.key("alt+x")
        self.assertEqual(self.player.wait(LIMIT), 0)


if __name__ == "__main__":
    unittest.main()
