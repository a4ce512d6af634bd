# SPDX-License-Identifier: GPL-3.0-or-later
"""A radio station with comfort: songs that are whole, named and tagged, stations that outlive a crash."""
import os
import unittest

from radio import REMOVE, SAVE, RadioTest


class RadioComfort(RadioTest):
    def test_with_comfort_songs_are_whole_and_stations_kept_at_once(self):
        songs = self.path("my songs")
        path = self.data("db/settings.xml")
        with open(path, "rb") as file:
            text = file.read()
        self.assertEqual(text.count(b"<IROP/>"), 1)
        with open(path, "wb") as file:
            file.write(text.replace(b"<IROP/>", b"<IROP>%s</IROP>" % songs.encode()))
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
