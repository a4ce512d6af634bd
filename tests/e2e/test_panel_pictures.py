# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the pictures of README.md and docs/pictures, and notices when they show what is no more.

With TOVIK_KEEP_PICTURES=1 they are written anew; look at them then. What changes from one time to
the next (the spectrum, the time) and words are left out of the comparison.
"""
import os
import shutil
import subprocess
import time
import unittest

from looks import LooksTest
from program import ARTEFACTS

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
DOCS = os.path.join(ROOT, "docs")
SCALE = 2

# Of nobody: the music that a picture needs. Length in seconds, who, what.
SONGS = (
    (221, "Tarn House", "Northern Harbour"), (187, "Isa Vendrel", "Glass Lanterns"),
    (224, "The Pale Kilometres", "Paper Boats"), (261, "Isa Vendrel", "Slow Trains"),
    (178, "Tarn House", "Copper Sky"), (215, "Ferrin & Oake", "Half Past Winter"),
    (252, "The Pale Kilometres", "Signal Hill"), (169, "Tarn House", "Lighthouse Keeper"),
    (206, "Ferrin & Oake", "Marmalade"), (243, "Isa Vendrel", "A Room With No Clocks"),
    (160, "The Pale Kilometres", "Ferry to Elsewhere"), (197, "Ferrin & Oake", "Understory"),
    (234, "Tarn House", "Tin Roof Weather"), (271, "Isa Vendrel", "The Long Verandah"),
    (208, "Ferrin & Oake", "Borrowed Umbrella"), (185, "The Pale Kilometres", "Last Bus, First Snow"),
)
STATIONS = ("Radio Tarn - quiet songs", "Harbour FM", "Night Shift, electronic", "Old Town Jazz",
            "The Verandah - folk", "Chamber Music at Noon", "Weather and Waltzes")

TABS = {"main": (133, 20), "equalizer": (157, 20), "playlist": (181, 20), "rip": (205, 20),
        "radio": (229, 20)}
FOLD, PLAY, MINI, BAND = (437, 162), (75, 283), (393, 18), (46, 108)
NOWHERE = (235, 306)

# What is left out, in skin pixels: what moves, and words.
FRAME_WORDS = ((246, 276, 288, 292),)
DISPLAY = (21, 50, 282, 148)
MAIN = FRAME_WORDS + (DISPLAY, (20, 154, 100, 167), (22, 168, 280, 184), (20, 198, 80, 211),
                      (166, 198, 250, 211), (286, 46, 436, 146))
HIDDEN = {
    "screenshot": MAIN + ((288, 154, 420, 168), (288, 169, 449, 249)),
    "pictures/quicklist": MAIN + ((286, 46, 429, 60), (288, 60, 451, 262)),
    "pictures/equalizer": FRAME_WORDS + ((22, 46, 432, 60),),
    "pictures/playlist": FRAME_WORDS + ((20, 45, 440, 235), (319, 241, 451, 263)),
    "pictures/rip": FRAME_WORDS + ((20, 45, 452, 235),),
    "pictures/radio": FRAME_WORDS + ((20, 45, 452, 235), (400, 240, 452, 264)),
    "pictures/mini": ((38, 12, 156, 84),),
}


class PanelPictures(LooksTest):
    COMFORT = None  # as a new user has it

    def setUp(self):
        super().setUp()
        self.environment["QT_SCALE_FACTOR"] = str(SCALE)
        self.start_screen("-wr")
        self.start_window_manager()
        self.lay_data()
        self.lay_songs()
        self.lay_disc()
        with open(self.data("db/stations.dat"), "w", encoding="utf-8", newline="") as file:
            file.write("[stationlist]\r\n")
            for number, name in enumerate(STATIONS, 1):
                file.write(f"Station{number}=http://127.0.0.1:1/{number}\r\n"
                           f"Url{number}={name}\r\n\r\n")
            file.write(f"NumberOfEntries={len(STATIONS)}\r\n")
        for key, value in ((b"SHF", b"1"), (b"CFD", b"1"), (b"EQ", b"1"), (b"CVP", b"0")):
            self.setting(key, value)
        path = self.data("db/settings.xml")
        with open(path, encoding="utf-8") as file:
            text = file.read()
        flat = '<CEQ Value="0/0/0/0/0/0/0/0/0/0"/>'
        self.assertIn(flat, text)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text.replace(flat, '<CEQ Value="5/4/2/0/-2/-1/1/3/5/4"/>'))

    def lay_songs(self):
        """The first is the player's own tune, again and again; the others are the same file."""
        folder = self.path("Music")
        os.mkdir(folder)
        names = [os.path.join(folder, f"{who} - {what}.mp3") for _, who, what in SONGS]
        seconds, who, what = SONGS[0]
        subprocess.run(
            ["ffmpeg", "-v", "error", "-stream_loop", "-1", "-i",
             os.path.join(ROOT, "data", "music", "welcome.ogg"), "-t", str(seconds), "-map_metadata",
             "-1", "-c:a", "libmp3lame", "-b:a", "192k", "-write_id3v1", "1", "-metadata",
             f"artist={who}", "-metadata", f"title={what}", "-metadata", "album=Sea Charts",
             "-metadata", "date=2026", "-metadata", "genre=Folk", names[0]], check=True)
        for name in names[1:]:
            os.link(names[0], name)
        with open(self.data("db/autosave.m3u"), "w", encoding="utf-8", newline="") as file:
            file.write("#EXTM3U\r\n")
            for name, (seconds, who, what) in zip(names, SONGS):
                file.write(f"#EXTINF:{seconds},{who}-{what}\r\n{name}\r\n")

    def lay_disc(self):
        """An image of silence, with the same songs in its CD-Text."""
        self.disc = self.path("disc.cue")
        sector = 0
        with open(self.disc, "w", encoding="utf-8") as file:
            file.write('TITLE "Sea Charts"\nPERFORMER "Tarn House"\nFILE "disc.bin" BINARY\n')
            for number, (seconds, who, what) in enumerate(SONGS[:11], 1):
                minutes, rest = divmod(sector, 75 * 60)
                file.write(f'  TRACK {number:02} AUDIO\n    TITLE "{what}"\n'
                           f'    PERFORMER "{who}"\n'
                           f'    INDEX 01 {minutes:02}:{rest // 75:02}:{rest % 75:02}\n')
                sector += 75 * seconds
        with open(self.path("disc.bin"), "wb") as file:
            file.truncate(sector * 2352)

    def move(self, place):
        self.tool("xdotool", "mousemove", "--window", self.main,
                  *(str(SCALE * coordinate) for coordinate in place))

    def click(self, place):
        self.move(place)
        self.tool("xdotool", "click", "1")

    def settled(self, window, hidden):
        """A picture of the window, once two in a row agree but for what moves."""
        pictures = []

        def same():
            pictures.append(self.picture_of(window, f"now-{len(pictures) % 2}"))
            if len(pictures) < 2:
                return False
            one, other = ([path, *self.masked(SCALE, hidden)] for path in pictures[-2:])
            return not self.apart(one, other, SCALE)

        self.wait_until(same, "a picture that stays")
        return pictures[-1]

    def take(self, name, window=None):
        hidden = HIDDEN[name]
        path = self.settled(window or self.main, hidden)
        os.makedirs(ARTEFACTS, exist_ok=True)
        shutil.copy(path, os.path.join(ARTEFACTS, os.path.basename(name) + ".png"))
        stored = os.path.join(DOCS, name + ".png")
        if os.environ.get("TOVIK_KEEP_PICTURES"):
            shutil.copy(path, stored)
        flat = ["-background", "#406080", "-alpha", "remove", "-alpha", "off"]
        with self.subTest(name):
            self.assertEqual(self.size(path), self.size(stored))
            one, other = ([file, *flat, *self.masked(SCALE, hidden)] for file in (path, stored))
            self.assertEqual(self.apart(one, other, SCALE), {}, "it shows something else")

    def test_the_pictures_show_what_there_is(self):
        self.start_shown("--cd", self.disc)
        self.click(PLAY)
        self.move(NOWHERE)
        self.click((26 + 250 // 3, 177))  # a third of the song
        self.move(NOWHERE)
        time.sleep(2)  # the time and the spectrum follow
        self.take("screenshot")
        self.click(FOLD)
        self.move(NOWHERE)
        self.take("pictures/quicklist")
        for panel in ("equalizer", "playlist", "rip", "radio"):
            self.click(TABS[panel])
            self.move(BAND if panel == "equalizer" else NOWHERE)
            self.take("pictures/" + panel)
        self.click(TABS["main"])
        self.click(MINI)
        mini = self.first(lambda: self.windows_of_role("mini"), "the mini window")
        self.tool("xdotool", "mousemove", "1020", "760")
        self.take("pictures/mini", mini)


if __name__ == "__main__":
    unittest.main()
