# SPDX-License-Identifier: GPL-3.0-or-later
"""What the tests of the radio share: a station on this machine, and the player with it in its list."""
import array
import os
import random
import shutil
import signal
import subprocess
import tempfile
import time

import icecast
from program import LIMIT, PROGRAM, ProgramTest

PANEL = (229, 20)  # the tab of the radio's panel
FIRST_ROW = (120, 52)
PLAY, ADD, REMOVE, SAVE = (45, 253), (95, 253), (145, 253), (195, 253)
SONG_SECONDS = 60
LOUD = 300  # of 32768: what counts as sound


class RadioTest(ProgramTest):
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
        # As a first run leaves it, which would take a second longer.
        shutil.copytree(os.path.join(os.path.dirname(PROGRAM), "data"), self.data(""))
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
