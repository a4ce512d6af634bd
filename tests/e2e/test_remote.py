# SPDX-License-Identifier: GPL-3.0-or-later
"""The remote control over the message bus, with a client of our own and with playerctl."""
import os
import shutil
import subprocess
import time
import unittest

from program import LIMIT, media
from remote import NAME, PLAYER, PROPERTIES, ROOT, SECOND, TRACKS, RemoteTest


class Remote(RemoteTest):
    def test_the_program(self):
        self.start()
        self.assertEqual(self.get("Identity", ROOT), "Tovik")
        self.assertEqual(self.get("DesktopEntry", ROOT), "tovik")
        self.assertEqual(self.get("SupportedUriSchemes", ROOT), ["file", "http", "https"])
        types = self.get("SupportedMimeTypes", ROOT)
        self.assertIn("audio/mpeg", types)
        for playlist in ("audio/x-mpegurl", "audio/x-scpls"):
            self.assertNotIn(playlist, types)
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
        self.assertEqual(self.call(ROOT, "Quit"), [])
        self.assertEqual(self.player.wait(LIMIT), 0)

    def test_a_minimised_window_is_raised(self):
        self.start_window_manager()
        self.start()
        window = self.window_of(self.player)
        self.tool("xdotool", "windowminimize", "--sync", window)
        self.wait_until(lambda: not self.player_windows(), "the window to go")
        self.assertEqual(self.call(ROOT, "Raise"), [])
        self.wait_until(lambda: self.player_windows() == [window], "the window to come back")

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
        self.assertIs(self.get("CanPause"), True)  # there is something to play
        self.assertEqual(self.call(PLAYER, "PlayPause"), [])
        self.assertEqual(self.get("PlaybackStatus"), "Playing")

    def test_nothing_to_play(self):
        with open(self.path("none.m3u"), "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n")
        self.start(self.path("none.m3u"))
        self.until("Tracks", [], TRACKS)
        self.until("PlaybackStatus", "Stopped")
        self.assertEqual([self.get("CanPlay"), self.get("CanPause")], [False, False])
        self.assertEqual(self.call(PLAYER, "PlayPause"),
                         {"error": "org.freedesktop.DBus.Error.NotSupported"})

    def test_what_can_be_done_is_told(self):
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")
        can = ("CanGoNext", "CanGoPrevious", "CanPlay", "CanPause", "CanSeek")
        self.assertEqual([self.get(name) for name in can], [True, False, True, True, True])
        for _ in range(2):
            self.call(PLAYER, "Next")
        self.assertEqual([self.get(name) for name in can], [False, True, True, True, True])
        told = {}
        self.wait_until(lambda: told.update(self.changes()) or "CanGoPrevious" in told, "not told")
        self.assertEqual((told["CanGoNext"], told["CanGoPrevious"]), (False, True))
        for name, on, off in (("LoopStatus", "Playlist", "None"), ("Shuffle", True, False)):
            for value, possible in ((on, True), (off, False)):
                self.put(name, "s" if name == "LoopStatus" else "b", value)
                self.assertIs(self.get("CanGoNext"), possible, name)
                self.wait_until(lambda p=possible: self.changes().get("CanGoNext") is p,
                                "not told")
        self.call(PLAYER, "Stop")
        self.assertIs(self.get("CanSeek"), False)
        self.wait_until(lambda: self.changes().get("CanSeek") is False, "not told")

    def test_seeking(self):
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")
        self.call(PLAYER, "Pause")
        self.ask("signals")
        track = self.get("Metadata")["mpris:trackid"]
        self.call(PLAYER, "SetPosition", "(ox)", track, 3 * SECOND)
        signals = self.ask("signals")
        self.assertIn([PLAYER, "Seeked", [3 * SECOND]], signals)
        self.assertFalse([arguments for _, name, arguments in signals
                          if name == "PropertiesChanged" and "Position" in arguments[1]])
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
        for asked, held in ((7.0, 1.0), (-1.0, 0.0)):
            self.assertEqual(self.put("Volume", "d", asked), [])
            self.assertEqual(self.get("Volume"), held)
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
        self.assertEqual(self.call(PLAYER, "OpenUri", "(s)",
                                   "file://" + media("wav_s16_44100_mono.wav")), [])
        self.assertEqual(len(self.get("Tracks", TRACKS)), 4)
        self.assertTrue(self.get("Metadata")["xesam:url"].endswith("/wav_s16_44100_mono.wav"))
        self.assertEqual(self.call(PLAYER, "OpenUri", "(s)", "gopher://x"),
                         {"error": "org.freedesktop.DBus.Error.InvalidArgs"})

    def test_rows_that_come_go_and_change_are_told(self):
        self.start_window_manager()  # before the window, which it may still be taking over else
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")
        tracks = self.get("Tracks", TRACKS)
        self.ask("signals")
        self.assertEqual(self.call(PLAYER, "OpenUri", "(s)",
                                   "file://" + media("wav_s16_44100_mono.wav")), [])
        added = self.get("Tracks", TRACKS)[-1]
        signals = []
        self.wait_until(lambda: signals.extend(self.ask("signals")) or "TrackAdded" in [
            name for _, name, _ in signals], "not told")
        self.assertIn([PROPERTIES, "PropertiesChanged", [TRACKS, {}, ["Tracks"]]], signals)
        metadata, after = next(arguments for _, name, arguments in signals if name == "TrackAdded")
        self.assertEqual((metadata["mpris:trackid"], after), (added, tracks[-1]))
        # The row that plays gets its real length: its words change.
        changed = []
        self.call(TRACKS, "GoTo", "(o)", tracks[1])
        self.wait_until(lambda: changed.extend(self.told("TrackMetadataChanged")) or changed,
                        "not told")
        self.assertIn(changed[0][0], [tracks[1], added])
        self.assertEqual(changed[0][1]["mpris:trackid"], changed[0][0])
        # What is selected is removed: on the screen, since nobody may from outside.
        self.call(PLAYER, "Stop")  # nothing else is selected meanwhile
        window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", window)
        self.tool("xdotool", "mousemove", "--window", window, "350", "200", "click", "1")
        self.tool("xdotool", "key", "--clearmodifiers", "End", "Delete")
        removed = []
        self.wait_until(lambda: removed.extend(self.told("TrackRemoved")) or removed, "not told")
        self.assertEqual(removed, [[added]])
        self.assertEqual(self.get("Tracks", TRACKS), tracks)
        # What another start hands over takes the place of the list, or comes to its end.
        self.run_program("--device", "silent", media("varied.wav"))
        if self.COMFORT == "on":
            joined = []
            self.wait_until(lambda: joined.extend(self.told("TrackAdded")) or joined, "not told")
            self.assertEqual(joined[0][1], tracks[-1])
            return
        replaced = []
        self.wait_until(lambda: replaced.extend(self.told("TrackListReplaced")) or replaced,
                        "not told")
        self.assertEqual(replaced[-1][0], self.get("Tracks", TRACKS))
        self.assertEqual(replaced[-1][1], replaced[-1][0][0])

    def test_every_property_has_its_type_and_only_some_are_set(self):
        self.start()
        types = {ROOT: {"CanQuit": "b", "CanRaise": "b", "HasTrackList": "b", "Identity": "s",
                        "DesktopEntry": "s", "SupportedUriSchemes": "as",
                        "SupportedMimeTypes": "as"},
                 PLAYER: {"PlaybackStatus": "s", "LoopStatus": "s", "Rate": "d", "Shuffle": "b",
                          "Metadata": "a{sv}", "Volume": "d", "Position": "x", "MinimumRate": "d",
                          "MaximumRate": "d", "CanGoNext": "b", "CanGoPrevious": "b",
                          "CanPlay": "b", "CanPause": "b", "CanSeek": "b", "CanControl": "b"},
                 TRACKS: {"Tracks": "ao", "CanEditTracks": "b"}}
        refused = "org.freedesktop.DBus.Error."
        for interface, properties in types.items():
            everything = self.call(PROPERTIES, "GetAll", "(s)", interface)[0]
            self.assertEqual(set(everything), set(properties), interface)
            for name, signature in properties.items():
                self.assertEqual(self.ask("type", interface, name), signature, name)
                wrong = "InvalidArgs" if name in ("LoopStatus", "Rate", "Shuffle",
                                                  "Volume") else "PropertyReadOnly"
                self.assertEqual(self.put(name, "(ii)", (1, 2), interface),
                                 {"error": refused + wrong}, name)

    def test_bad_input_is_refused_or_does_nothing(self):
        self.start(self.playlist())
        self.until("PlaybackStatus", "Playing")
        tracks = self.get("Tracks", TRACKS)
        refused = {"error": "org.freedesktop.DBus.Error.InvalidArgs"}
        for uri in ("", "x", "/etc/passwd", "file:///etc/passwd", "file://elsewhere/a.mp3",
                    "file://" + self.path("list.m3u"), "file:///a%zz.mp3", "file:///no/such/file.mp3", "ftp://x/y.mp3"):
            self.assertEqual(self.call(PLAYER, "OpenUri", "(s)", uri), refused, uri)
        for call in ((PLAYER, "OpenUri", "(i)", 1), (PLAYER, "SetPosition", "(sx)", tracks[0], 1),
                     (PLAYER, "SetPosition", "(o)", tracks[0]), (PLAYER, "Next", "(s)", "x"),
                     (TRACKS, "GoTo", "(s)", tracks[0]), (TRACKS, "GetTracksMetadata", "(as)", []),
                     (ROOT, "Quit", "(b)", True), (TRACKS, "RemoveTrack", "()"),
                     (TRACKS, "AddTrack", "(s)", "file:///x")):
            self.assertEqual(self.call(*call), refused, call)
        for track in ("/", "/org/tovik/track/0", "/org/tovik/track/99999999999999999999",
                      "/org/mpris/MediaPlayer2/TrackList/NoTrack"):
            self.assertEqual(self.call(TRACKS, "GoTo", "(o)", track), [])
            self.assertEqual(self.call(TRACKS, "GetTracksMetadata", "(ao)", [track]), [[]])
            self.assertEqual(self.call(PLAYER, "SetPosition", "(ox)", track, 0), [])
        self.assertEqual(self.get("Metadata")["mpris:trackid"], tracks[0])
        self.assertEqual(self.get("Tracks", TRACKS), tracks)
        # What nothing can play stands in the list, and is no success either.
        noise = self.path("noise.mp3")
        with open(noise, "wb") as file:
            file.write(b"no sound at all " * 100)
        self.assertEqual(self.call(PLAYER, "OpenUri", "(s)", "file://" + noise), refused)
        self.assertEqual(len(self.get("Tracks", TRACKS)), len(tracks) + 1)

    def test_the_words_of_a_tag(self):
        words = ((b"Caf\xe9", 30), (b"B\xe9 Band", 30), (b"Album", 30), (b"1999", 4), (b"", 30))
        with open(media("mp3_vbr.mp3"), "rb") as file:
            sound = file.read()
        song = self.path("song.mp3")
        with open(song, "wb") as file:
            file.write(sound + b"TAG" + b"".join(word.ljust(size, b"\0") for word, size in words) +
                       bytes([17]))
        self.start(song)
        self.wait_until(lambda: "xesam:artist" in self.get("Metadata"), "no words")
        facts = self.get("Metadata")
        self.assertEqual(facts["xesam:title"], "Caf\xe9")
        self.assertEqual(facts["xesam:artist"], ["B\xe9 Band"])
        self.assertEqual(facts["xesam:album"], "Album")
        self.assertEqual(facts["xesam:genre"], ["Rock"])
        self.assertTrue(facts["xesam:contentCreated"].startswith("1999"))

    def test_the_picture_of_a_track(self):
        self.environment["XDG_CACHE_HOME"] = self.path("cache")
        picture = b"\xff\xd8\xff\xe0 a picture"
        body = b"\0image/jpeg\0\x03\0" + picture
        frame = b"APIC" + len(body).to_bytes(4, "big") + b"\0\0" + body
        with open(media("mp3_vbr.mp3"), "rb") as file:
            sound = file.read()
        os.mkdir(self.path("music"))
        song = self.path("music/song.mp3")
        with open(song, "wb") as file:
            file.write(b"ID3\x03\0\0" + bytes([0, 0, 0, len(frame)]) + frame + sound)
        self.start(song)
        self.wait_until(lambda: "mpris:artUrl" in self.get("Metadata"), "no picture")
        url = self.get("Metadata")["mpris:artUrl"]
        self.assertTrue(url.startswith("file://" + self.path("cache/tovik/covers/")), url)
        with open(url.removeprefix("file://"), "rb") as file:
            self.assertEqual(file.read(), picture)
        self.wait_until(lambda: self.changes().get("Metadata", {}).get("mpris:artUrl") == url,
                        "not told")
        # One in the folder is nearer at hand.
        with open(self.path("music/Cover.JPG"), "wb") as file:
            file.write(picture)
        self.call(PLAYER, "OpenUri", "(s)", "file://" + song)
        self.wait_until(lambda: self.get("Metadata").get("mpris:artUrl")
                        == "file://" + self.path("music/Cover.JPG"), "the picture of the folder")
        self.call(PLAYER, "OpenUri", "(s)", "file://" + media("varied.wav"))
        self.until("PlaybackStatus", "Playing")
        self.assertNotIn("mpris:artUrl", self.get("Metadata"))

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
        self.assertIn(NAME, self.names())
        self.assertEqual(self.call(ROOT, "Quit"), [])
        self.assertEqual(self.player.wait(LIMIT), 0)  # the name was still that of the first
        self.assertIsNone(other.poll())

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
        self.assertEqual(control("metadata", "title"), "Song 1")
        self.assertEqual(control("status"), "Paused")
        control("play")
        self.assertEqual(control("status"), "Playing")
        control("play-pause")
        self.assertEqual(control("status"), "Paused")
        control("position", "1+")
        self.assertGreaterEqual(float(control("position")), 1)
        control("play-pause")
        self.assertEqual(control("status"), "Playing")
        control("volume", "0.5")
        self.assertEqual(float(control("volume")), 0.5)
        control("volume", "0.1-")
        self.assertEqual(float(control("volume")), 0.4)
        control("shuffle", "On")
        self.assertEqual(control("shuffle"), "On")
        control("shuffle", "Toggle")
        self.assertEqual(control("shuffle"), "Off")
        control("loop", "Playlist")
        self.assertEqual(control("loop"), "Playlist")
        control("loop", "None")
        self.assertEqual(control("loop"), "None")
        control("open", "file://" + media("wav_s16_44100_mono.wav"))
        self.assertTrue(control("metadata", "xesam:url").endswith("/wav_s16_44100_mono.wav"))
        control("stop")
        self.assertEqual(control("status"), "Stopped")


if __name__ == "__main__":
    unittest.main()
