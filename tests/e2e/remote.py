# SPDX-License-Identifier: GPL-3.0-or-later
"""What the tests of the remote control share: a private bus and a client on it."""
import json
import os
import subprocess

from program import ProgramTest, media
from reader import PYTHON

NAME = "org.mpris.MediaPlayer2.tovik"
PATH = "/org/mpris/MediaPlayer2"
ROOT = "org.mpris.MediaPlayer2"
PLAYER = ROOT + ".Player"
TRACKS = ROOT + ".TrackList"
PROPERTIES = "org.freedesktop.DBus.Properties"
SECOND = 1000000


class RemoteTest(ProgramTest):
    """A player on a private bus, and a client of it."""

    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_bus()
        self.client = subprocess.Popen(
            [PYTHON, os.path.join(os.path.dirname(__file__), "bus_client.py"), NAME, PATH],
            env=self.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.stack.callback(self.client.communicate)

    def start(self, *words):
        if words and self.COMFORT == "on":
            self.keep_nothing()
        self.player = self.start_program("--device", "silent", *words)
        self.wait_until(lambda: "error" not in self.call(PROPERTIES, "Get", "(ss)", ROOT,
                                                         "Identity"), "nobody on the bus")

    def ask(self, *request):
        self.client.stdin.write(json.dumps(request) + "\n")
        self.client.stdin.flush()
        return json.loads(self.client.stdout.readline())

    def call(self, interface, method, signature="()", *arguments):
        return self.ask("call", interface, method, signature, arguments)

    def get(self, name, interface=PLAYER):
        answer = self.call(PROPERTIES, "Get", "(ss)", interface, name)
        self.assertIsInstance(answer, list, answer)
        return answer[0]

    def put(self, name, signature, value, interface=PLAYER):
        return self.call(PROPERTIES, "Set", "(ssv)", interface, name, [signature, value])

    def told(self, name):
        """The arguments of the signals of a name since the last time."""
        return [arguments for _, signal, arguments in self.ask("signals") if signal == name]

    def changes(self):
        """What was told to have changed since the last time."""
        changed = {}
        for arguments in self.told("PropertiesChanged"):
            changed.update(arguments[1])
        return changed

    def until(self, name, value, interface=PLAYER):
        self.wait_until(lambda: self.get(name, interface) == value,
                        f"{name} never became {value}")

    def playlist(self):
        path = self.path("list.m3u")
        songs = [media("varied.wav"), media("wav_s16_44100_stereo.wav"), media("silence.wav")]
        with open(path, "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n" + "".join(f"#EXTINF:60,Song {i}\n{song}\n"
                                             for i, song in enumerate(songs, 1)))
        return path
