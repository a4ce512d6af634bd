# SPDX-License-Identifier: GPL-3.0-or-later
"""A radio station as a user has it: found in the list, played, saved, lost and back again."""
import os
import unittest

from program import odd
from radio import SAVE, RadioTest


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


if __name__ == "__main__":
    unittest.main()
