# SPDX-License-Identifier: GPL-3.0-or-later
"""A screen reader for the tests: what it gets of the player over AT-SPI."""
import json
import os
import signal

from program import LIMIT, ProgramTest, media

READER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "read_tree.py")
PYTHON = "/usr/bin/python3"  # the one that the bindings belong to


class ReadTest(ProgramTest):
    """A player with a window manager, and a screen reader beside it."""

    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_bus()
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        self.start_window_manager()

    def start(self, *words):
        self.player = self.start_program("--device", "silent", *words)
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def tree(self, *requests):
        said = self.tool(PYTHON, READER, *requests)
        self.assertEqual(said.returncode, 0, said.stderr)
        return json.loads(said.stdout)

    def seen(self, *requests):
        """What is shown, by its name."""
        return {one["name"]: one for one in self.tree(*requests)["children"]
                if "showing" in one["states"]}

    def playlist(self):
        path = self.path("list.m3u")
        song = media("wav_s16_44100_stereo.wav")
        with open(path, "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n")
            for title in ("First", "Second", "Third"):
                file.write(f"#EXTINF:65,{title}\n{song}\n")
        return path

    def focused(self, *requests):
        """A list that is not seen has a row that would have the keyboard."""
        return [one["name"] for one in self.tree(*requests)["children"]
                if "focused" in one["states"] and "showing" in one["states"]]
