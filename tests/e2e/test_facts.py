# SPDX-License-Identifier: GPL-3.0-or-later
"""What files of every format say of themselves, in the list and on the desktop."""
import os
import re
import subprocess
import unittest

from program import LIMIT, media
from remote import PLAYER, RemoteTest

FORMATS = ("ogg", "flac", "wma", "mp3")


class Facts(RemoteTest):
    COMFORT = "on"

    def tagged(self, ending):
        """A file of three seconds with tags, and a picture where the format takes one from here."""
        path = self.path("file." + ending)
        words = ["ffmpeg", "-v", "error", "-i", media("wav_s16_44100_stereo.wav")]
        picture = self.path("red.png")
        if ending == "flac":
            subprocess.run(["ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", "color=red:s=8x8",
                            "-frames:v", "1", picture], check=True, timeout=LIMIT)
            words += ["-i", picture, "-map", "0", "-map", "1", "-disposition:v", "attached_pic"]
        subprocess.run(words + ["-metadata", f"title=Song {ending}", "-metadata", "artist=Band",
                                "-metadata", "album=Disc", path], check=True, timeout=LIMIT)
        return path

    def listed(self):
        """Seconds and title of each row that was saved."""
        return re.findall(r"#EXTINF:(-?\d+),([^\r\n]*)", self.read("db/autosave.m3u").decode())

    def test_rows_that_were_never_played(self):
        self.run_program("--render", self.path("out.wav"), "--seconds", "0.1",
                         media("silence.wav"))  # makes the data folder
        paths = [self.tagged(ending) for ending in FORMATS]
        with open(self.data("db/autosave.m3u"), "w", newline="", encoding="utf-8") as file:
            file.write("#EXTM3U\r\n")
            for path in paths:
                file.write(f"#EXTINF:0,{os.path.basename(path)}\r\n{path}\r\n")
        self.start()
        expected = [("3", f"Band - Song {ending}") for ending in FORMATS]
        self.wait_until(lambda: [row["xesam:title"] for row in self.rows()] ==
                        [title for _, title in expected], "the titles")
        self.player.terminate()
        self.assertEqual(self.player.wait(LIMIT), 0)
        self.assertEqual(self.listed(), expected)
        _, errors = self.player.communicate()
        self.assertEqual(errors, b"")

    def rows(self):
        tracks = self.get("Tracks", "org.mpris.MediaPlayer2.TrackList")
        return self.call("org.mpris.MediaPlayer2.TrackList", "GetTracksMetadata", "(ao)",
                         tracks)[0]

    def test_the_track_that_plays(self):
        path = self.tagged("flac")
        self.start(path)
        self.wait_until(lambda: self.get("Metadata").get("xesam:title") == "Song flac", "its title")
        self.wait_until(lambda: "mpris:artUrl" in self.get("Metadata"), "its picture")
        playing = self.get("Metadata")
        self.assertEqual(playing["xesam:artist"], ["Band"])
        self.assertEqual(playing["xesam:album"], "Disc")
        self.call(PLAYER, "Stop")


if __name__ == "__main__":
    unittest.main()
