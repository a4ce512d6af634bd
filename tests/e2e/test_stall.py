# SPDX-License-Identifier: GPL-3.0-or-later
"""A disk that stops to answer while a track plays from it holds up nothing else."""
import os
import signal
import subprocess
import time
import unittest
import wave

from program import LIMIT, ProgramTest

SECONDS = 60
RATE = 44100
WIDTH = 470  # of the window
EQUALIZER_TAB = (156, 24)
NEXT, STOP = (170, 284), (138, 284)
NEAR_THE_END = (265, 178)  # of the position bar: less than four seconds of a minute are left
QUICK_LIST = (288, 169, 161, 80)  # left, top, width, height: on the main panel alone
ANSWERS_WITHIN = 1.0
ENDS_WITHIN = 2.0


class StalledDisk(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.start_sound_server()
        self.gate = self.path("gate")
        self.environment["TOVIK_STALL_GATE"] = self.gate

    def play(self, names, *words):
        songs = [self.song(name) for name in names]
        with open(self.path("list.m3u"), "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n" + "".join(f"#EXTINF:{SECONDS},{song}\n{song}\n"
                                             for song in songs))
        self.environment["LD_PRELOAD"] = os.environ["TOVIK_SLOW_DISK"]
        self.player = self.start_program(*words, self.path("list.m3u"))
        del self.environment["LD_PRELOAD"]
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.wait_until(self.heard, "the first track")

    def song(self, name):
        path = self.path(name)
        with wave.open(path, "wb") as file:
            file.setnchannels(1)
            file.setsampwidth(2)
            file.setframerate(RATE)
            file.writeframes((b"\x00\x10" * 50 + b"\x00\xf0" * 50) * (SECONDS * RATE // 100))
        return path

    def stall(self):
        """From now on the disk does not answer; returns when a read waits for it."""
        open(self.gate, "w", encoding="ascii").close()
        self.addCleanup(lambda: os.path.exists(self.gate) and os.remove(self.gate))
        self.wait_until(lambda: os.path.exists(self.gate + ".hit"), "a read that stalls")

    def click(self, place):
        self.tool("xdotool", "mousemove", "--window", self.shown_window, *map(str, place),
                  "click", "1")

    def quick_list(self):
        """Its picture."""
        picture = self.tool_bytes("import", "-silent", "-window", self.shown_window, "-depth", "8",
                                  "rgb:-")
        left, top, width, height = QUICK_LIST
        return [picture[3 * (y * WIDTH + left):3 * (y * WIDTH + left + width)]
                for y in range(top, top + height)]

    def heard(self):
        """Whether the sink plays anything but silence, for a tenth of a second."""
        with subprocess.Popen(["parec", "--raw", "--device=nowhere.monitor", "--latency-msec=20"],
                              env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL) as listener:
            sound = listener.stdout.read(4 * RATE // 10)
            listener.kill()
        return any(sound)

    def assert_answers(self, place):
        before = self.quick_list()
        begun = time.monotonic()
        self.click(place)
        while self.quick_list() == before:
            self.assertLess(time.monotonic() - begun, ANSWERS_WITHIN, "the window does not answer")

    def assert_ends(self):
        begun = time.monotonic()
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)
        self.assertLessEqual(time.monotonic() - begun, ENDS_WITHIN)

    def test_window_other_tracks_and_stop_do_not_wait(self):
        self.play(["stalled.wav", "fine.wav"])
        self.stall()
        self.assert_answers(EQUALIZER_TAB)
        self.wait_until(lambda: not self.heard(), "the end of what had been read")
        self.click(NEXT)
        self.wait_until(self.heard, "the second track")
        self.click(STOP)
        self.wait_until(lambda: not self.heard(), "silence")
        self.assert_ends()

    def test_stop_and_the_end_do_not_wait(self):
        self.play(["stalled.wav", "fine.wav"])
        self.stall()
        self.click(STOP)
        self.assert_answers(EQUALIZER_TAB)
        self.wait_until(lambda: not self.heard(), "silence")
        self.assert_ends()

    def test_a_track_goes_on_when_the_disk_is_back(self):
        self.play(["stalled.wav", "fine.wav"])
        self.stall()
        self.wait_until(lambda: not self.heard(), "the end of what had been read")
        os.remove(self.gate)
        self.wait_until(self.heard, "the rest of the track")
        self.assert_ends()

    def test_with_comfort_a_next_track_that_stalls_holds_up_nothing(self):
        self.play(["fine.wav", "stalled.wav"], "--comfort=on")
        self.click(NEAR_THE_END)
        self.stall()  # it is opened before its time has come
        self.assert_answers(EQUALIZER_TAB)
        self.assert_ends()


if __name__ == "__main__":
    unittest.main()
