# SPDX-License-Identifier: GPL-3.0-or-later
"""A radio station as a user has it: found in the list, played, saved, lost and back again."""
import array
import os
import random
import signal
import subprocess
import tempfile
import time
import unittest

import icecast
from program import LIMIT, ProgramTest

PANEL = (229, 20)  # the tab of the radio's panel
FIRST_ROW = (120, 52)
PLAY, ADD, REMOVE, SAVE = (45, 253), (95, 253), (145, 253), (195, 253)
SONG_SECONDS = 60
LOUD = 300  # of 32768: what counts as sound


class Radio(ProgramTest):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        os.chmod(folder.name, 0o711)
        cls.song = os.path.join(folder.name, "song.mp3")
        # No two parts of noise are alike, so a piece of it is found in one place alone.
        subprocess.run(
            ["ffmpeg", "-v", "error", "-f", "lavfi", "-i",
             f"anoisesrc=d={SONG_SECONDS}:a=0.3:seed={random.randrange(1 << 30)}", "-c:a",
             "libmp3lame", "-b:a", "128k", "-ac", "2", "-write_xing", "0", "-id3v2_version", "0",
             cls.song], check=True)

    def setUp(self):
        if not icecast.available():
            self.skipTest("icecast2 or ffmpeg is not installed")
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.start_sound_server()
        self.station = icecast.Station(self.folder)
        self.stack.callback(self.station.kill)
        self.station.start(self.song)
        os.makedirs(self.data("db"))
        with open(self.data("db/stations.dat"), "wb") as file:
            file.write(b"[stationlist]\r\nStation1=%s\r\nUrl1=Here\r\n"
                       b"Station2=http://127.0.0.1:1/\r\nUrl2=Nowhere\r\n\r\n"
                       b"NumberOfEntries=2\r\n" % self.station.address.encode())

    def start(self, *words):
        self.player = self.start_program(*words)
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def click(self, place, *more):
        self.tool("xdotool", "mousemove", "--window", self.shown_window, *map(str, place),
                  "click", *more, "1")

    def play_first_station(self):
        self.click(PANEL)
        time.sleep(0.3)
        self.click(FIRST_ROW)
        self.click(PLAY)

    def loudness(self):
        """The mean level of a fifth of a second of what goes to the sink."""
        samples = array.array("h", self.monitor(0.2))
        return sum(map(abs, samples)) / max(1, len(samples))

    def monitor(self, seconds):
        wanted = int(44100 * seconds) * 4
        with subprocess.Popen(["parec", "-d", "nowhere.monitor", "--raw", "--format=s16le",
                               "--rate=44100", "--channels=2", "--latency-msec=20"],
                              env=self.environment, stdout=subprocess.PIPE) as recorder:
            data = recorder.stdout.read(wanted)
            recorder.kill()
        return data

    def wait_for_sound(self):
        self.wait_until(lambda: self.loudness() > LOUD, "sound")

    def wait_for_silence(self):
        self.wait_until(lambda: self.loudness() < 1, "silence")

    def caption(self):
        return self.tool("xdotool", "getwindowname", self.shown_window).stdout.rstrip("\n")

    def wait_for_caption(self, words):
        # It rotates, so the beginning may stand behind the end.
        self.wait_until(lambda: words in self.caption() * 2, f"the caption {words!r}")

    def test_a_station_plays_tells_its_titles_and_stops(self):
        self.start()
        self.play_first_station()
        self.wait_for_sound()
        self.station.title("Ann - First song")
        self.wait_for_caption("Ann - First song")
        self.station.title("Bob - Second song")
        self.wait_for_caption("Bob - Second song")
        self.tool("xdotool", "key", "1")
        time.sleep(0.5)
        self.keep_screenshot("radio_main.png")
        self.tool("xdotool", "key", "5")
        time.sleep(0.5)
        self.keep_screenshot("radio_panel.png")
        self.tool("xdotool", "key", "v")
        self.wait_for_silence()
        self.click(PLAY)
        self.wait_for_sound()
        self.end()
        self.assertIn(b"NumberOfEntries=2\r\n", self.read("db/stations.dat"))

    def test_two_songs_are_saved_as_they_were_sent(self):
        self.start()
        self.play_first_station()
        self.wait_for_sound()
        self.click(SAVE)
        for words in ("One: a/b", "Two"):
            self.station.title(words)
            name = self.data(words.replace(":", "").replace("/", "") + ".mp3")
            self.wait_until(lambda: os.path.exists(name) and os.path.getsize(name) > 40000,
                            "what is saved of " + words)
        self.click(SAVE)
        time.sleep(1)
        self.end()
        with open(self.song, "rb") as file:
            sent = file.read()
        places = []
        for name in ("One ab.mp3", "Two.mp3"):
            saved = self.read(name)
            self.assertEqual(saved[:2] + saved[3:4], b"\xff\xfb\x00")
            self.assertIn(saved[4:], sent * 2, name)
            places.append((sent * 2).index(saved[4:]))
        self.assertEqual(places[0] + len(self.read("One ab.mp3")) - 4, places[1],
                         "the second song begins where the first one ends")

    def test_a_server_that_was_killed_and_started_again_is_heard_again(self):
        self.start()
        self.play_first_station()
        self.wait_for_sound()
        self.station.kill()
        self.wait_for_silence()
        time.sleep(2)
        self.assertIsNone(self.player.poll())
        self.station.start(self.song)
        began = time.monotonic()
        self.wait_for_sound()
        print(f"sound is back {time.monotonic() - began:.1f} s behind the server's restart")
        self.end()

    def test_an_address_of_the_command_line_is_played(self):
        self.start(self.station.address)
        self.wait_for_sound()
        self.end()

    def test_a_dead_station_leaves_the_player_at_hand(self):
        self.start()
        self.click(PANEL)
        time.sleep(0.3)
        self.click((FIRST_ROW[0], FIRST_ROW[1] + 16), "--repeat", "2", "--delay", "60")
        time.sleep(2)
        self.click(FIRST_ROW)
        self.click(PLAY)
        self.wait_for_sound()
        self.end()


if __name__ == "__main__":
    unittest.main()
