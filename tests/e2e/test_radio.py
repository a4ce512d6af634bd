# SPDX-License-Identifier: GPL-3.0-or-later
"""A radio station as a user has it: found in the list, played, saved, lost and back again."""
import os
import unittest

from program import odd
from radio import REMOVE, SAVE, RadioTest


class Radio(RadioTest):
    @odd
    def test_a_station_is_played_saved_lost_and_heard_again(self):
        self.start()
        self.play_first_station()
        self.wait_for_sound()
        self.click(SAVE)
        for words in ("One: a/b", "Two"):
            self.station.title(words)
            name = self.data(words.replace(":", "").replace("/", "") + ".mp3")
            self.wait_until(lambda: os.path.exists(name) and os.path.getsize(name) > 20000,
                            "what is saved of " + words)
        self.wait_for_caption("Two")
        self.click(SAVE)
        self.station.kill()
        self.wait_for_silence()
        self.demand_two_songs()
        self.assertIsNone(self.player.poll())
        self.station.start(self.song)
        self.wait_for_sound()
        self.end()
        self.assertIn(b"NumberOfEntries=2\r\n", self.read("db/stations.dat"))

    def demand_two_songs(self):
        """They are what was sent, and nothing of it is missing between them."""
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

    def test_with_comfort_songs_are_whole_and_stations_kept_at_once(self):
        songs = self.path("my songs")
        self.setting(b"IROP", songs.encode())
        os.makedirs(songs)
        with open(os.path.join(songs, "Ann - One-Two; three.mp3"), "wb") as file:
            file.write(b"here first")
        self.start("--comfort=on")
        self.play_first_station()
        self.wait_for_sound()
        self.click(SAVE)
        names = ("Ann - One-Two; three (2).mp3", "Bob - Four.mp3")
        for title, name in zip(("Ann - One/Two; three", "Bob - Four"), names):
            self.station.title(title)
            path = os.path.join(songs, name)
            self.wait_until(lambda: os.path.exists(path) and os.path.getsize(path) > 20000,
                            "what is saved of " + title)
        self.click(REMOVE)
        self.wait_until(lambda: b"NumberOfEntries=1\r\n" in self.read("db/stations.dat"),
                        "the list without its first station")
        self.player.kill()
        self.player.wait()
        with open(self.song, "rb") as file:
            sent = file.read() * 2
        places = []
        for name, artist, title in zip(names, (b"Ann", b"Bob"), (b"One/Two; three", b"Four")):
            with open(os.path.join(songs, name), "rb") as file:
                saved = file.read()
            tag = 10 + int.from_bytes(saved[8:10], "big")
            self.assertEqual(saved[:3], b"ID3")
            self.assertIn(b"\0" + artist, saved[:tag])
            self.assertEqual(saved[-128:-125], b"TAG")
            self.assertEqual(saved[-125:-95].rstrip(), title)
            sound = saved[tag:-128]
            self.assertIn(sound, sent, name)
            places.append((sent.index(sound), len(sound)))
        self.assertEqual(places[0][0] + places[0][1], places[1][0],
                         "the second song begins where the first one ends")
        probe = self.tool("ffmpeg", "-v", "warning", "-i", os.path.join(songs, names[1]), "-f",
                          "null", "-")
        self.assertNotIn("Header missing", probe.stderr)
        with open(os.path.join(songs, "Ann - One-Two; three.mp3"), "rb") as file:
            self.assertEqual(file.read(), b"here first")


if __name__ == "__main__":
    unittest.main()
