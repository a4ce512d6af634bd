# SPDX-License-Identifier: GPL-3.0-or-later
"""A disc becomes files: an image as a drive, the panel's button and menu, the dialog, real encoders."""
import os
import signal
import subprocess
import time
import unittest

from disc_image import Disc, with_children
from program import LIMIT, ProgramTest

PANEL = (205, 20)  # the tab of the ripper's panel
FIRST_ROW = (120, 78)
BUTTON = (50, 253)
SELECTED, ALL = 3, 2  # how far down the menu


def contents(path):
    with open(path, "rb") as file:
        return file.read()


def decoded(path):
    return subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-f", "s16le", "-"],
                          capture_output=True, check=True, timeout=LIMIT).stdout


class Rip(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.music = self.path("Music")
        player = self.start_program("--device", "silent")
        self.window_of(player)
        player.send_signal(signal.SIGTERM)
        self.assertEqual(player.wait(LIMIT), 0)
        self.wait_until(lambda: not self.player_windows(), "the window's end")
        self.setting(b"DOB", b"1411,192,128,128,128,128")
        with open(self.data("db/settings.xml"), "rb") as file:
            text = file.read()
        begin, end = text.index(b"<ROP>"), text.index(b"</ROP>")
        with open(self.data("db/settings.xml"), "wb") as file:
            file.write(text[:begin] + b"<ROP>" + self.music.encode() + text[end:])

    def start(self, form, disc):
        self.setting(b"DOF", form)
        self.show_panel(self.start_program("--device", "silent", "--cd", disc.cue))

    def show_panel(self, player):
        self.player = player
        self.shown_window = self.window_of(player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.click(PANEL)
        time.sleep(1)  # the drive is looked at, and its tracks are listed

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)
        self.wait_until(lambda: not self.player_windows(), "the window's end")

    def click(self, place):
        self.tool("xdotool", "mousemove", "--window", self.shown_window, *map(str, place),
                  "click", "1")

    def menus(self):
        return [window for window in self.shown("--class", "tovik")
                if '"player"' not in self.tool("xprop", "-id", window, "WM_WINDOW_ROLE").stdout]

    def choose(self, entry):
        before = len(self.menus())
        self.click(BUTTON)
        self.wait_until(lambda: len(self.menus()) > before, "the menu")
        self.tool("xdotool", "key", *["Down"] * entry, "Return")

    def rip_selected(self, row=1):
        self.click((FIRST_ROW[0], FIRST_ROW[1] + 16 * (row - 1)))
        self.choose(SELECTED)

    def rip_all(self):
        self.choose(ALL)
        dialog = self.box("(Disc|CD)")
        self.wait_until(lambda: self.tool("xdotool", "getactivewindow").stdout.strip() == dialog,
                        "the dialog to come to the front")
        self.tool("xdotool", "key", "alt+r")

    def files(self):
        return [os.path.join(folder, name) for folder, _, names in os.walk(self.music)
                for name in names]

    def wait_for_file(self, ending, size=0):
        """The path of a file that ends so, once it has grown to its end."""
        def grown():
            found = [path for path in self.files() if path.endswith(ending)]
            if not found or os.path.getsize(found[0]) <= size:
                return []
            return found if not self.open_files() else []
        return self.first(grown, ending)

    def open_files(self):
        """Files of the music folder that the player or its children have open."""
        opened = []
        for process in with_children(self.player.pid):
            try:
                numbers = os.listdir(f"/proc/{process}/fd")
                opened += [os.readlink(f"/proc/{process}/fd/{number}") for number in numbers]
            except OSError:
                continue
        return [path for path in opened if path.startswith(self.music)]

    def test_a_disc_becomes_wav_files_bit_for_bit(self):
        disc = Disc(self.folder, [4, 5.04, 6])
        self.start(b"WAV", disc)
        self.rip_all()
        self.wait_for_file("TRACK3.WAV", 44)
        time.sleep(0.3)
        self.keep_screenshot("rip_done.png")
        self.end()
        for number, sound in enumerate(disc.sound, 1):
            path, = [path for path in self.files() if path.endswith(f"TRACK{number}.WAV")]
            data = contents(path)
            self.assertEqual(data[:4] + data[8:16], b"RIFFWAVEfmt ")
            self.assertEqual(int.from_bytes(data[4:8], "little"), len(sound) + 36)
            self.assertEqual(int.from_bytes(data[40:44], "little"), len(sound))
            self.assertEqual(data[44:], sound, number)

    def test_encoders_get_every_sample(self):
        disc = Disc(self.folder, [4, 5])
        for form, ending in ((b"MP3 CBR", ".MP3"), (b"OGG Vorbis CBR", ".OGG"),
                             (b"WMA", ".WMA")):
            self.start(form, disc)
            self.rip_selected(2)
            path = self.wait_for_file(ending, 1000)
            time.sleep(0.3)  # the tags
            self.end()
            sound = path
            if ending == ".MP3":  # what tells its delay is looked for right at the beginning
                sound = self.path("plain.mp3")
                with open(sound, "wb") as file:
                    data = contents(path)
                    file.write(data[data.index(b"\xff\xfb"):])
            length = len(decoded(sound))
            if ending == ".WMA":  # its frames are of fixed length
                self.assertAlmostEqual(length, len(disc.sound[1]), delta=4 * 4096)
            else:
                self.assertEqual(length, len(disc.sound[1]), ending)
            if ending == ".MP3":
                for reader in (("id3v2", "-l"), ("mid3v2", "-l")):
                    told = self.tool(*reader, path).stdout
                    self.assertIn("Tovik", told)
                    self.assertIn("Track 2", told)
                    self.assertRegex(told, r"TRCK.*2")

    def test_a_rip_is_cancelled(self):
        disc = Disc(self.folder, [600, 600])
        self.start(b"MP3 CBR", disc)
        self.rip_all()
        self.wait_until(self.files, "a file")
        time.sleep(0.5)
        self.keep_screenshot("rip_running.png")
        self.click(BUTTON)
        box = self.box("Cancel rip")
        self.tool("xdotool", "key", "--window", box, "alt+y")
        self.wait_until(lambda: len(self.files()) == 2 and not self.open_files(), "the end")
        time.sleep(0.3)
        self.end()
        first, second = (len(decoded(path)) for path in sorted(self.files()))
        self.assertLess(first, len(disc.sound[0]))
        self.assertGreater(first, second)
        self.assertLess(second, 44100 * 4 * 3)

    def test_a_missing_encoder_is_named(self):
        disc = Disc(self.folder, [4])
        self.setting(b"DOF", b"MP3 CBR")
        path, self.environment["PATH"] = self.environment["PATH"], self.folder
        player = self.start_program("--device", "silent", "--cd", disc.cue)
        self.environment["PATH"] = path
        self.show_panel(player)
        self.rip_selected()
        self.answer(self.plain_box())
        self.end()
        self.assertIn(b"The program lame is missing. It comes with the package lame.",
                      self.read("Tovik.log"))
        self.assertEqual(self.files(), [])


if __name__ == "__main__":
    unittest.main()
