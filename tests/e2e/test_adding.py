# SPDX-License-Identifier: GPL-3.0-or-later
"""Files come to the playlist and go again as a user of today expects: nothing is thrown away."""
import glob
import os
import re
import shutil
import signal
import subprocess
import unittest

from program import LIMIT, ProgramTest, media

SONG = "wav_s16_44100_stereo.wav"
DRAG_SOURCE = os.environ["TOVIK_DRAG_SOURCE"]
LIST_LEFT, LIST_TOP, PITCH = 20, 45, 15  # of the playlist in the window


class Adding(ProgramTest):
    COMFORT = "on"

    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.run_program("--render", self.path("out.wav"), "--seconds", "0.1", media(SONG))
        self.keep("a", "b", "c")

    def keep(self, *titles):
        """The list of the last session."""
        with open(self.data("db/autosave.m3u"), "w", newline="", encoding="utf-8") as file:
            file.write("#EXTM3U\r\n")
            for title in titles:
                file.write(f"#EXTINF:65,{title}\r\n{self.song(title + '.wav')}\r\n")

    def song(self, name):
        path = self.path(name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        shutil.copy(media(SONG), path)
        return path

    def begin(self, *words):
        self.player = self.start_program("--device", "silent", *words)
        self.player_window = self.window_of(self.player)
        self.wait_until(lambda: glob.glob(self.path("tovik-*")), "the socket")
        self.tool("xdotool", "windowactivate", "--sync", self.player_window)

    def titles(self):
        """What is in the list at the end of the session."""
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)
        text = self.read("db/autosave.m3u").decode()
        return re.findall(r"#EXTINF:\d+,([^\r]*)", text)

    def key(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", *keys)

    def mouse(self, x, y, *actions):
        self.tool("xdotool", "mousemove", "--window", self.player_window, str(x), str(y), *actions)

    def row(self, row, *actions):
        """The pointer in the middle of a row, counted from 0."""
        self.mouse(LIST_LEFT + 60, LIST_TOP + row * PITCH + PITCH // 2, *actions)

    def settle(self, other_than=None):
        """The picture of the list, once it stays as it is for a while."""
        pictures = []

        def stays():
            pictures.append(self.tool_bytes("import", "-silent", "-window", self.player_window,
                                            "-crop", "432x190+20+45", "-depth", "8", "rgb:-"))
            return len(pictures) > 3 and {*pictures[-4:]} == {pictures[-1]} != {other_than}

        self.wait_until(stays, "a picture that stays")
        return pictures[-1]

    def hands_over(self, *words):
        result = self.run_program("--device", "silent", *words)
        self.assertEqual((result.returncode, result.stderr), (0, b""))

    def caption(self):
        return 2 * self.tool("xdotool", "getwindowname", self.player_window).stdout.rstrip("\n")

    def plays(self, name):
        self.wait_until(lambda: name in self.caption(), f"the caption {name!r}")

    def test_files_of_the_file_manager_come_to_the_list_and_play(self):
        self.begin(self.song("first.wav"))
        self.hands_over("/Play", self.song("second.wav"))
        self.plays("second")
        self.hands_over("/ADD", self.song("third.wav"), self.song("fourth.wav"))
        self.hands_over()  # behind it: what came before is in the list
        self.plays("second")
        self.assertEqual(self.titles(), ["a", "b", "c", "first.wav", "second.wav", "third.wav",
                                         "fourth.wav"])

    def test_rows_go_and_come_back(self):
        self.begin()
        self.mouse(200, 10)
        self.key("3")
        self.settle()
        self.row(1, "click", "1")
        # Each time the row that moved up is selected by then: "b", "c" and "a" go.
        self.key("Delete", "Delete", "Delete")
        self.settle()
        self.key("ctrl+z")
        self.settle()
        self.assertEqual(self.titles(), ["a"])

    def test_a_dropped_folder_and_a_dropped_list(self):
        self.song("music/z.wav")
        self.song("music/below/y.wav")
        with open(self.path("two.m3u"), "w", encoding="utf-8") as file:
            file.write(f"#EXTM3U\n#EXTINF:1,x\n{self.path('a.wav')}\n")
        self.begin()
        self.mouse(200, 10)
        self.key("3")
        before = self.settle()
        source = subprocess.Popen([DRAG_SOURCE, self.path("music"), self.path("two.m3u")],
                                  env=self.environment, text=True, stdout=subprocess.PIPE,
                                  stderr=subprocess.DEVNULL)
        self.stack.callback(source.communicate)
        self.stack.callback(source.kill)
        window = self.first(lambda: self.shown("--name", "^Files to drag$"), "the files")
        self.tool("xdotool", "windowactivate", "--sync", window)
        self.tool("xdotool", "mousemove", "--window", window, "40", "40", "mousedown", "1")
        for step in range(6):
            self.mouse(LIST_LEFT + 100 + step, LIST_TOP + 60, "sleep", "0.1")
        self.tool("xdotool", "mouseup", "1")
        self.assertEqual(source.stdout.readline().strip(), "copied")
        self.settle(before)  # who drags says so before its data is asked for, and has to stay
        source.kill()
        self.assertEqual(self.titles(), ["a", "b", "c", "z", "y", "x"])


if __name__ == "__main__":
    unittest.main()
