# SPDX-License-Identifier: GPL-3.0-or-later
"""A disc becomes files: an image as a drive, the panel's button and menu, the dialog, real encoders."""
import os
import re
import shutil
import signal
import subprocess
import time
import unittest

from disc_image import SECTOR, Disc, with_children
from program import LIMIT, ProgramTest, children_of, media, odd

PANEL = (205, 20)  # the tab of the ripper's panel
FIRST_ROW = (120, 78)
BUTTON = (50, 253)
SELECTED, ALL = 3, 2  # how far down the menu


def contents(path):
    with open(path, "rb") as file:
        return file.read()


def disc_id(disc):
    """The name of the file that is kept of a disc."""
    starts, sector = [], 150
    for sound in disc.sound:
        starts.append(sector // 75)
        sector += len(sound) // SECTOR
    digits = sum(int(digit) for start in starts for digit in str(start))
    return "%02x%04x%02x" % (digits % 255, sector // 75 - starts[0], len(starts))


def without_head(data):
    """An MP3 file from its first frame on: what tells its delay is looked for right there."""
    return data[data.index(b"\xff\xfb"):]


def decoded(path):
    return subprocess.run(["ffmpeg", "-v", "error", "-i", path, "-f", "s16le", "-"],
                          capture_output=True, check=True, timeout=LIMIT).stdout


class Rip(ProgramTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()
        self.music = self.path("Music")
        self.run_program("--render", self.path("out.wav"), "--seconds", "0.1",
                         media("wav_s16_44100_stereo.wav"))  # lays the data folder
        self.setting(b"DOB", b"1411,192,128,128,128,128")
        with open(self.data("db/settings.xml"), "rb") as file:
            text = file.read()
        begin, end = text.index(b"<ROP>"), text.index(b"</ROP>")
        with open(self.data("db/settings.xml"), "wb") as file:
            file.write(text[:begin] + b"<ROP>" + self.music.encode() + text[end:])

    def write(self, name, data):
        """A file of the test's folder, or of that path."""
        path = self.path(name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(data)

    def start(self, form, disc):
        self.setting(b"DOF", form)
        self.show_panel(self.start_program("--device", "silent", "--cd", disc.cue))

    def show_panel(self, player):
        self.player = player
        self.shown_window = self.window_of(player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)
        self.click(PANEL)
        time.sleep(0.4)  # the drive is looked at, and its tracks are listed

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

    def wait_for_files(self, ending, count, tagged=False):
        """The paths of so many files that end so, once they have grown to their ends."""
        def grown():
            found = sorted(path for path in self.files() if path.endswith(ending))
            whole = len(found) == count and not self.open_files() and all(
                os.path.getsize(path) > 1000 for path in found)
            return whole and (not tagged or all(contents(path)[-128:-125] == b"TAG"
                                                for path in found)) and found
        self.wait_until(grown, ending)
        return grown()

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
        disc = Disc(self.folder, [2, 3.04, 4])
        self.start(b"WAV", disc)
        self.rip_all()
        paths = self.wait_for_files(".WAV", 3)
        self.keep_screenshot("rip_done.png")
        for path, sound in zip(paths, disc.sound):
            data = contents(path)
            self.assertEqual(data[:4] + data[8:16], b"RIFFWAVEfmt ")
            self.assertEqual(int.from_bytes(data[4:8], "little"), len(sound) + 36)
            self.assertEqual(int.from_bytes(data[40:44], "little"), len(sound))
            self.assertEqual(data[44:], sound, path)
        self.rip_what_is_damaged(disc)
        self.end()

    def rip_what_is_damaged(self, disc):
        """The last track again, whose end is gone meanwhile: silence there, and a word in the log."""
        lost = 150
        os.truncate(self.path("disc.bin"), os.path.getsize(self.path("disc.bin")) - lost * SECTOR)
        shutil.rmtree(self.music)
        self.rip_selected(3)
        path, = self.wait_for_files(".WAV", 1)
        kept = len(disc.sound[2]) - lost * SECTOR
        sound = contents(path)[44:]
        self.assertEqual(sound[:kept], disc.sound[2][:kept])
        self.assertEqual(sound[kept:], bytes(lost * SECTOR))
        # A read that begins before the end of an image succeeds, so not each is told.
        noted = re.search(r"Track 3: (\d+) sectors lost, .*TRACK3\.WAV",
                          self.read("Tovik.log").decode())
        self.assertTrue(noted)
        self.assertTrue(0 < int(noted[1]) <= lost, noted[1])

    def test_encoders_get_every_sample(self):
        disc = Disc(self.folder, [4, 5])
        self.start(b"OGG Vorbis CBR", disc)
        for form, ending, alone in ((b"OGG Vorbis CBR", ".ogg", False), (b"WMA", ".WMA", False),
                                    (b"MP3 VBR", ".MP3", True)):
            self.setting(b"DOF", form)
            if alone:
                self.rip_selected(2)
            else:
                self.rip_all()
            paths = self.wait_for_files(ending, 1 if alone else 2, tagged=ending == ".MP3")
            for path, sound in zip(paths, disc.sound[1:] if alone else disc.sound):
                if ending == ".MP3":
                    self.write("plain.mp3", without_head(contents(path)))
                    path = self.path("plain.mp3")
                length = len(decoded(path))
                if ending == ".WMA":  # its frames are of fixed length
                    self.assertAlmostEqual(length, len(sound), delta=4 * 4096)
                else:
                    self.assertEqual(length, len(sound), ending)
            shutil.rmtree(self.music)  # within a second the folder may have the same name
        self.end()

    @odd
    def test_an_album_is_named_and_tagged(self):
        titles = ['He said "-o x"', "-o x", "Größe"]
        disc = Disc(self.folder, [4, 4.2, 5])
        self.write(self.data("CDDB/" + disc_id(disc)), (
            "DTITLE=Das Ü\r\nDARTIST=Björk\r\nDYEAR=1999\r\nDGENRE=Jazz\r\n" +
            "".join(f"TTITLE{number}={title}\r\n" for number, title in enumerate(titles))).encode())
        self.start(b"MP3 CBR", disc)
        self.rip_all()
        paths = self.wait_for_files(".mp3", 3, tagged=True)
        self.end()
        folder = os.path.join(self.music, "Björk-Das Ü")
        self.assertEqual(paths, sorted(f"{folder}/{title}.mp3" for title in titles))
        for number, (title, sound) in enumerate(zip(titles, disc.sound), 1):
            path = f"{folder}/{title}.mp3"
            self.write("plain.mp3", without_head(contents(path)))
            self.assertEqual(len(decoded(self.path("plain.mp3"))), len(sound), title)
            told = self.tool_bytes("id3v2", "-l", path)
            first, _, second = told.partition(b"id3v2 tag info")
            first, second = first.decode("latin-1"), second.decode()  # it converts the second
            self.assertRegex(first, r"Artist: Björk\b")
            self.assertIn(title, first)
            self.assertRegex(first, rf"Year: 1999, Genre: Jazz .*Track: {number}|"
                                    rf"Year: 1999, Genre: Jazz[^\n]*\n[^\n]*Track: {number}")
            for part in (r"TALB.*: Das Ü", rf"TIT2.*: {title}", r"TYER.*: 1999",
                         rf"TRCK.*: {number}", r"TENC.*: Tovik", r"TCON.*: Jazz"):
                self.assertRegex(second, part)
            told = self.tool("mid3v2", "-l", path).stdout
            for part in ("TALB=Das Ü", f"TIT2={title}", f"TRCK={number}", "TENC=Tovik",
                         "TCON=Jazz"):
                self.assertIn(part + "\n", told)

    @odd
    def test_a_rip_is_cancelled(self):
        disc = Disc(self.folder, [200, 200])
        self.start(b"MP3 CBR", disc)
        self.rip_all()
        encoder = int(self.first(lambda: children_of(self.player.pid, "lame"), "the encoder"))
        self.wait_until(lambda: self.files() and os.path.getsize(self.files()[0]) > 50000, "a file")
        os.kill(encoder, signal.SIGSTOP)  # however fast it is, the track is not over
        self.keep_screenshot("rip_running.png")
        self.click(BUTTON)
        box = self.box("Cancel rip")
        self.tool("xdotool", "key", "--window", box, "alt+y")
        self.wait_until(lambda: not self.boxes("Cancel rip"), "the end of the box")
        os.kill(encoder, signal.SIGCONT)
        self.wait_for_files(".mp3", 2, tagged=True)
        self.end()
        first, second = (len(decoded(path)) for path in sorted(self.files()))
        self.assertLess(first, len(disc.sound[0]))
        self.assertGreater(first, second)
        self.assertLess(second, 44100 * 4 * 3)

    def test_with_comfort_a_cancel_ends_the_job_and_nothing_is_lost(self):
        disc = Disc(self.folder, [4, 200, 200])
        self.write(self.data("CDDB/" + disc_id(disc)),
                   "DTITLE=x=y\r\nDARTIST=AC/DC\r\nDGENRE=Jazz\r\nTTITLE0=Dyear?\r\n"
                   "TTITLE1=Long\r\nTTITLE2=Never\r\n".encode())
        folder = os.path.join(self.music, "AC-DC-x=y")
        self.write(os.path.join(folder, "Dyear.mp3"), b"earlier")
        self.setting(b"DOF", b"MP3 CBR")
        self.start_sound_server()
        length = 60 * 44100 * 4
        self.write("long.wav", contents(media("wav_s16_44100_stereo.wav"))[:40] +
                   length.to_bytes(4, "little") + bytes(length))
        self.show_panel(self.start_program("--comfort=on", "--cd", disc.cue,
                                           self.path("long.wav")))
        self.wait_until(lambda: self.streams() == 1, "the sound of a file")
        self.rip_all()
        long = os.path.join(folder, "Long.mp3")
        self.wait_until(lambda: os.path.exists(long) and os.path.getsize(long) > 50000, "a file")
        encoder = children_of(self.player.pid, "lame")[0]
        os.kill(int(encoder), signal.SIGSTOP)
        self.assertEqual(self.streams(), 1, "the file plays on")
        self.click(BUTTON)
        box = self.box("Cancel rip")
        self.tool("xdotool", "key", "--window", box, "alt+y")
        self.wait_until(lambda: not self.boxes("Cancel rip"), "the end of the box")
        os.kill(int(encoder), signal.SIGCONT)
        self.wait_until(lambda: not os.path.exists(long), "the end of the part")
        time.sleep(0.5)
        self.assertEqual(sorted(os.listdir(folder)), ["Dyear (2).mp3", "Dyear.mp3"])
        self.assertEqual(self.streams(), 1)
        self.end()
        self.assertEqual(contents(os.path.join(folder, "Dyear.mp3")), b"earlier")
        told = self.tool("mid3v2", "-l", os.path.join(folder, "Dyear (2).mp3")).stdout
        for part in ("TALB=x=y", "TPE1=AC/DC", "TIT2=Dyear?", "TRCK=1", "TCON=Jazz"):
            self.assertIn(part + "\n", told)
        tail = contents(os.path.join(folder, "Dyear (2).mp3"))[-128:]
        self.assertEqual(tail[:97].split(b"TAG")[1].split(), [b"Dyear?", b"AC/DC", b"x=y"])

    def test_a_missing_encoder_is_named(self):
        disc = Disc(self.folder, [4])
        self.setting(b"DOF", b"MP3 CBR")
        path, self.environment["PATH"] = self.environment["PATH"], self.folder
        player = self.start_program("--device", "silent", "--cd", disc.cue)
        self.environment["PATH"] = path
        self.show_panel(player)
        time.sleep(0.6)  # the first look of a session lists the tracks anew
        self.rip_selected()
        self.answer(self.plain_box())
        self.end()
        self.assertIn(b"The program lame is missing. It comes with the package lame.",
                      self.read("Tovik.log"))
        self.assertEqual(self.files(), [])


if __name__ == "__main__":
    unittest.main()
