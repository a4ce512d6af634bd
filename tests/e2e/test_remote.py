# SPDX-License-Identifier: GPL-3.0-or-later
"""The remote control over the message bus, with a client of our own and with playerctl."""
import json
import os
import shutil
import subprocess
import time
import unittest

from program import LIMIT, ProgramTest, media
from test_accessibility import PYTHON

NAME = "org.mpris.MediaPlayer2.tovik"
PATH = "/org/mpris/MediaPlayer2"
ROOT = "org.mpris.MediaPlayer2"
PLAYER = ROOT + ".Player"
TRACKS = ROOT + ".TrackList"
PROPERTIES = "org.freedesktop.DBus.Properties"
SECOND = 1000000


class Remote(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_bus()
        self.client = subprocess.Popen(
            [PYTHON, os.path.join(os.path.dirname(__file__), "bus_client.py"), NAME, PATH],
            env=self.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.stack.callback(self.client.communicate)

    def start(self, *words):
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

    def test_the_program(self):
        self.start()
        self.assertEqual(self.get("Identity", ROOT), "Tovik")
        self.assertEqual(self.get("DesktopEntry", ROOT), "tovik")
        self.assertEqual(self.get("SupportedUriSchemes", ROOT), ["file", "http", "https"])
        self.assertIn("audio/mpeg", self.get("SupportedMimeTypes", ROOT))
        for name in ("CanQuit", "CanRaise", "HasTrackList"):
            self.assertIs(self.get(name, ROOT), True)
        self.call(PLAYER, "Stop")  # the first start plays a welcome
        everything = self.call(PROPERTIES, "GetAll", "(s)", PLAYER)[0]
        self.assertEqual(everything["PlaybackStatus"], "Stopped")
        self.assertEqual(everything["Position"], 0)
        self.assertEqual((everything["Rate"], everything["MinimumRate"],
                          everything["MaximumRate"]), (1, 1, 1))
        self.assertIs(everything["CanControl"], True)
        self.assertIn('interface name="org.mpris.MediaPlayer2.TrackList"',
                      self.call("org.freedesktop.DBus.Introspectable", "Introspect")[0])
        self.assertEqual(self.call(ROOT, "Raise"), [])
        self.assertEqual(self.call(ROOT, "Quit"), [])
        self.assertEqual(self.player.wait(LIMIT), 0)

    def test_playing(self):
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")
        first = self.get("Metadata")
        self.assertEqual(first["xesam:title"], "Song 1")
        self.assertTrue(first["xesam:url"].endswith("/varied.wav"))
        self.assertGreater(first["mpris:length"], 5 * SECOND)
        self.changes()
        self.call(PLAYER, "Pause")
        self.assertEqual(self.get("PlaybackStatus"), "Paused")
        self.wait_until(lambda: self.changes().get("PlaybackStatus") == "Paused", "not told")
        time.sleep(0.2)  # what the device had is heard to its end
        place = self.get("Position")
        time.sleep(0.1)
        self.assertEqual(self.get("Position"), place)
        self.call(PLAYER, "Play")
        self.wait_until(lambda: self.get("Position") > place, "it does not go on")
        self.call(PLAYER, "PlayPause")
        self.assertEqual(self.get("PlaybackStatus"), "Paused")
        self.call(PLAYER, "PlayPause")
        self.call(PLAYER, "Next")
        self.assertEqual(self.get("Metadata")["xesam:title"], "Song 2")
        self.wait_until(lambda: self.changes().get("Metadata", {}).get("xesam:title") == "Song 2",
                        "not told")
        self.call(PLAYER, "Previous")
        self.assertEqual(self.get("Metadata")["mpris:trackid"], first["mpris:trackid"])
        self.call(PLAYER, "Stop")
        self.assertEqual(self.get("PlaybackStatus"), "Stopped")
        self.assertTrue(self.get("Metadata")["mpris:trackid"].endswith("/NoTrack"))

    def test_seeking(self):
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")
        self.call(PLAYER, "Pause")
        self.told("Seeked")
        track = self.get("Metadata")["mpris:trackid"]
        self.call(PLAYER, "SetPosition", "(ox)", track, 3 * SECOND)
        self.assertEqual(self.told("Seeked"), [[3 * SECOND]])
        self.assertEqual(self.get("Position"), 3 * SECOND)
        self.call(PLAYER, "Seek", "(x)", -SECOND)
        self.assertEqual(self.told("Seeked"), [[2 * SECOND]])
        self.call(PLAYER, "SetPosition", "(ox)", "/none", SECOND)
        self.call(PLAYER, "SetPosition", "(ox)", track, -1)
        self.assertEqual(self.told("Seeked"), [])
        self.assertEqual(self.call(PLAYER, "Seek", "(s)", "x"),
                         {"error": "org.freedesktop.DBus.Error.InvalidArgs"})

    def test_modes_and_volume(self):
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")
        self.changes()
        for name, signature, value in (("Shuffle", "b", True), ("LoopStatus", "s", "Playlist"),
                                       ("Volume", "d", 0.25)):
            self.assertEqual(self.put(name, signature, value), [])
            self.assertEqual(self.get(name), value)
            self.wait_until(lambda n=name, v=value: self.changes().get(n) == v, "not told")
        self.assertEqual(self.put("LoopStatus", "s", "Track"),
                         {"error": "org.freedesktop.DBus.Error.InvalidArgs"})
        self.assertEqual(self.put("Volume", "s", "loud"),
                         {"error": "org.freedesktop.DBus.Error.InvalidArgs"})
        self.assertEqual(self.put("CanGoNext", "b", False),
                         {"error": "org.freedesktop.DBus.Error.PropertyReadOnly"})
        self.assertEqual(self.put("Rate", "d", 0.0), [])
        self.assertEqual(self.get("PlaybackStatus"), "Paused")

    def test_the_list(self):
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")
        tracks = self.get("Tracks", TRACKS)
        self.assertEqual(len(tracks), 3)
        self.assertIs(self.get("CanEditTracks", TRACKS), False)
        facts = self.call(TRACKS, "GetTracksMetadata", "(ao)", [tracks[1], "/none", tracks[2]])[0]
        self.assertEqual([one["xesam:title"] for one in facts], ["Song 2", "Song 3"])
        self.assertEqual(facts[0]["mpris:length"], 60 * SECOND)
        self.call(TRACKS, "GoTo", "(o)", tracks[2])
        self.until("Metadata", {**self.get("Metadata"), "mpris:trackid": tracks[2]})
        self.call(TRACKS, "RemoveTrack", "(o)", tracks[0])
        self.call(TRACKS, "AddTrack", "(sob)", "file:///x", tracks[0], False)
        self.assertEqual(self.get("Tracks", TRACKS), tracks)
        self.told("TrackListReplaced")
        self.assertEqual(self.call(PLAYER, "OpenUri", "(s)", "file://" + media("wav_s16_44100_mono.wav")), [])
        self.assertEqual(len(self.get("Tracks", TRACKS)), 4)
        self.wait_until(lambda: any(len(one[0]) == 4 for one in self.told("TrackListReplaced")),
                        "not told")
        self.assertTrue(self.get("Metadata")["xesam:url"].endswith("/wav_s16_44100_mono.wav"))
        self.assertEqual(self.call(PLAYER, "OpenUri", "(s)", "gopher://x"),
                         {"error": "org.freedesktop.DBus.Error.InvalidArgs"})

    def test_what_is_not_there(self):
        self.start()
        unknown = "org.freedesktop.DBus.Error.Unknown"
        self.assertEqual(self.call(PLAYER, "Fly"), {"error": unknown + "Method"})
        self.assertEqual(self.call(PROPERTIES, "Get", "(ss)", PLAYER, "Colour"),
                         {"error": unknown + "Property"})
        self.assertEqual(self.call(PROPERTIES, "GetAll", "(s)", "no.such"),
                         {"error": unknown + "Interface"})

    def test_a_second_instance_has_a_name_of_its_own(self):
        self.start()
        self.environment["XDG_DATA_HOME"] = self.path("other")
        other = self.start_program("--device", "silent")
        own = f"{NAME}.instance{other.pid}"
        self.wait_until(lambda: own in self.names(), "no name of its own")

    def names(self):
        answer = subprocess.run(["dbus-send", "--session", "--print-reply", "--dest=org.freedesktop"
                                 ".DBus", "/", "org.freedesktop.DBus.ListNames"],
                                env=self.environment, capture_output=True, text=True, check=True)
        return answer.stdout.replace('"', " ").split()

    def test_without_a_bus(self):
        del self.environment["DBUS_SESSION_BUS_ADDRESS"]
        player = self.start_program("--device", "silent", self.playlist())
        self.window_of(player)
        player.terminate()
        self.assertEqual(player.wait(LIMIT), 0)

    @unittest.skipUnless(shutil.which("playerctl"), "playerctl is not installed")
    def test_playerctl(self):
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")

        def control(*words):
            said = self.tool("playerctl", "-p", "tovik", *words)
            self.assertEqual(said.returncode, 0, said.stderr)
            return said.stdout.strip()

        self.assertEqual(control("status"), "Playing")
        control("pause")
        self.assertEqual(control("status"), "Paused")
        control("position", "2")
        self.assertEqual(float(control("position")), 2)
        control("next")
        self.assertEqual(control("metadata", "title"), "Song 2")
        control("previous")
        control("play")
        control("volume", "0.5")
        self.assertEqual(float(control("volume")), 0.5)
        control("shuffle", "On")
        self.assertEqual(control("shuffle"), "On")
        control("loop", "Playlist")
        self.assertEqual(control("loop"), "Playlist")
        control("open", "file://" + media("wav_s16_44100_mono.wav"))
        self.assertTrue(control("metadata", "xesam:url").endswith("/wav_s16_44100_mono.wav"))
        control("stop")
        self.assertEqual(control("status"), "Stopped")


if __name__ == "__main__":
    unittest.main()
