# SPDX-License-Identifier: GPL-3.0-or-later
"""A second start while the program runs."""
import glob
import os
import re
import signal
import socket
import struct
import subprocess
import time
import unittest

from program import LIMIT, ProgramTest, media, odd

WAV = "wav_s16_44100_stereo.wav"


class HandOver(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()

    def silent(self, *words):
        return self.start_program("--device", "silent", *words)

    def running(self, *words):
        player = self.silent(*words)
        self.window_of(player)
        # It listens once its data folder is locked; its window number is known at the end of the
        # start.
        self.wait_until(self.sockets, "the socket")
        return player

    def sockets(self):
        return glob.glob(self.path("tovik-*"))

    def caption(self):
        """The window's caption, which goes round, twice in a row."""
        return 2 * self.tool("xdotool", "getwindowname", self.window()).stdout.rstrip("\n")

    def other_window(self):
        """A window of another program, which gets the keyboard."""
        process = subprocess.Popen(["xev", "-name", "other"], env=self.environment,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.stack.callback(process.wait)
        self.stack.callback(process.kill)
        window = self.box("other")
        self.tool("xdotool", "windowactivate", "--sync", window)
        return window

    def active(self):
        return self.tool("xdotool", "getactivewindow").stdout.strip()

    def stacking(self):
        """All windows from the lowest to the highest, as the window manager has them."""
        text = self.tool("xprop", "-root", "_NET_CLIENT_LIST_STACKING").stdout
        return [str(int(number, 16)) for number in re.findall("0x[0-9a-f]+", text)]

    def plays(self, name):
        self.wait_until(lambda: name in self.caption(), f"the caption {name!r}")

    def hands_over(self, *words):
        result = self.run_program("--device", "silent", *words)
        self.assertEqual((result.returncode, result.stderr), (0, b""))

    def end(self, player):
        player.send_signal(signal.SIGTERM)
        self.assertEqual(player.wait(LIMIT), 0)

    @odd
    def test_a_file_is_played_by_the_one_that_runs(self):
        player = self.running(media("flac_16_44100.flac"))
        begin = time.monotonic()
        self.hands_over("/ADD", media(WAV))
        self.assertLess(time.monotonic() - begin, 4, "the second start waited in vain")
        self.plays(WAV)
        self.assertEqual(len(self.player_windows()), 1)
        self.assertIsNone(player.poll())
        self.end(player)
        self.assertEqual(self.sockets(), [], "the socket stays behind")

    def test_a_relative_name_is_one_of_the_second_start(self):
        self.running()
        with open(media(WAV), "rb") as source, open(self.path("here.wav"), "wb") as file:
            file.write(source.read())
        self.hands_over("here.wav")
        self.plays("here.wav")

    @odd
    def test_a_list_takes_the_place_of_the_list(self):
        player = self.running()
        names = [WAV, "flac_16_44100.flac", "mp3_vbr.mp3"]
        with open(self.path("three.m3u"), "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n" + "".join(f"#EXTINF:10,{name}\n{media(name)}\n"
                                             for name in names))
        self.hands_over(self.path("three.m3u"))
        self.plays(WAV)
        self.end(player)
        saved = self.read("db/autosave.m3u").decode()
        self.assertEqual([line for line in saved.splitlines() if line.startswith("/")],
                         [media(name) for name in names])

    def test_a_name_of_any_length(self):
        self.running()
        folder = self.path("/".join(4 * ["d" * 100]))
        os.makedirs(folder)
        with open(media(WAV), "rb") as source, open(folder + "/far.wav", "wb") as file:
            file.write(source.read())
        self.hands_over(folder + "/far.wav")
        self.plays("far.wav")

    def test_without_a_file_the_window_comes_to_the_front(self):
        self.start_window_manager()
        player = self.running()
        window = self.window()
        other = self.other_window()
        self.wait_until(lambda: self.active() == other, "the other window")
        self.hands_over()
        self.wait_until(lambda: self.active() == window, "the player in front")
        self.assertEqual(self.stacking()[-1], window)
        self.assertIsNone(player.poll())

    def test_also_from_the_task_bar(self):
        self.start_window_manager()
        self.running()
        window = self.window()
        self.tool("xdotool", "windowminimize", "--sync", window)
        self.wait_until(lambda: not self.player_windows(), "the window to go")
        self.hands_over()
        self.wait_until(lambda: self.active() == window, "the player in front")
        self.assertEqual(self.player_windows(), [window])

    def test_of_two_that_start_together_one_stays(self):
        self.end(self.running())  # it made the data folder
        for _ in range(3):
            both = [self.silent(media(WAV)), self.silent(media("flac_16_44100.flac"))]
            self.wait_until(lambda: any(one.poll() is not None for one in both), "the end of one")
            stays, goes = sorted(both, key=lambda one: one.poll() is not None)
            self.assertEqual(goes.wait(LIMIT), 0, goes.stderr)
            # What the one that went was started with is played by the other.
            self.plays(WAV if goes is both[0] else "flac_16_44100.flac")
            self.assertIsNone(stays.poll())
            self.end(stays)

    def test_what_a_killed_one_left_is_no_hindrance(self):
        player = self.running()
        player.kill()
        player.wait(LIMIT)
        self.assertEqual(len(self.sockets()), 1)
        self.running(media(WAV))
        self.hands_over(media("flac_16_44100.flac"))
        self.plays("flac_16_44100.flac")

    def test_rubbish_in_the_socket(self):
        player = self.running()
        for rubbish in (b"", b"\0", os.urandom(5000), b"LONG\xff\xff\xff\xff",
                        struct.pack("<II", 3, 4) + b"/a"):
            with socket.socket(socket.AF_UNIX) as client:
                client.connect(self.sockets()[0])
                client.sendall(rubbish)
        # Others stay connected and say nothing.
        held = [socket.socket(socket.AF_UNIX) for _ in range(40)]
        for client in held:
            self.stack.callback(client.close)
            client.connect(self.sockets()[0])
        self.hands_over(media(WAV))
        self.plays(WAV)
        self.assertIsNone(player.poll())


if __name__ == "__main__":
    unittest.main()
