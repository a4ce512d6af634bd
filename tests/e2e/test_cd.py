# SPDX-License-Identifier: GPL-3.0-or-later
"""Audio CDs in the built program: images of discs stand for drives."""
import array
import cmath
import glob
import json
import math
import operator
import os
import shutil
import signal
import subprocess
import unittest

from program import LIMIT, ProgramTest, media, odd, read_wav
from reader import PYTHON, READER

SECTOR = 2352
PLAYER = "org.mpris.MediaPlayer2.Player"
SECOND = 1000000
# Drives of the machine come first.
LETTER = chr(ord("D") + len({os.path.realpath(name) for name in glob.glob("/dev/sr[0-9]*")}))


def sectors(name, first, count):
    with open(media(name), "rb") as file:
        file.seek(first * SECTOR)
        return file.read(count * SECTOR)


def track(number):
    return f"{LETTER}:\\Track{number:02}.cda"


class CdTest(ProgramTest):
    def playlist(self, *names):
        path = self.path("list.m3u")
        with open(path, "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n" + "".join(f"#EXTINF:3,Song\n{name}\n" for name in names))
        return path


class Rendered(CdTest):
    """Without a window, in virtual time."""

    def setUp(self):
        super().setUp()
        self.run_program("--render", self.path("out.wav"), "--seconds", "0.1",
                         media("wav_s16_44100_stereo.wav"))
        self.setting(b"CVL", b"100")

    def render(self, *words):
        """The sound as 16-bit samples, in bytes."""
        result = self.run_program("--render", self.path("out.wav"), *words)
        self.assertEqual(result.returncode, 0, result.stderr)
        _, channels, rate, samples = read_wav(self.path("out.wav"))
        self.assertEqual((channels, rate), (2, 44100))
        return array.array("h", (max(-32768, min(32767, round(sample * 32768)))
                                 for sample in samples)).tobytes()

    def test_a_track_comes_out_bit_for_bit(self):
        sound = self.render("--seconds", "4", "--cd", media("cd_tones.cue"), track(3))
        whole = sectors("cd_tones.bin", 532, 151)
        self.assertEqual(sound[:len(whole)], whole)
        self.assertFalse(any(sound[len(whole):]))

    def test_a_second_image_is_the_next_drive(self):
        other = chr(ord(LETTER) + 1)
        sound = self.render("--seconds", "1", "--cd", media("cd_tones.cue"), "--cd",
                            media("cd_hidden.cue"), f"{other}:\\Track01.cda")
        self.assertEqual(sound[:75 * SECTOR], sectors("cd_hidden.bin", 150, 75))

    def test_tracks_follow_each_other_and_data_is_passed_over(self):
        # The first start is a plain one, behind which no track of a disc would follow.
        self.setting(b"CFD", b"1")
        self.setting(b"CFDT", b"0")
        sound = self.render("--seconds", "14", "--cd", media("cd_mixed.cue"), self.playlist(
            media("wav_s16_44100_stereo.wav"), track(2), track(1), track(3)))
        # From the middle of each, where no level slides.
        first = sectors("cd_mixed.bin", 350 + 40, 10)
        second = sectors("cd_mixed.bin", 500 + 40, 10)
        self.assertGreaterEqual(sound.find(first), 0)
        self.assertGreater(sound.find(second), sound.find(first))


    def sounding(self, samples, hertz):
        """The first and the last twentieth of a second in which a tone is on the left."""
        left = samples[::2]
        turn = cmath.exp(-2j * math.pi * hertz / 44100)
        window = [turn ** n for n in range(44100 // 20)]
        heard = [at // len(window) for at in range(0, len(left) - len(window), len(window))
                 if abs(sum(map(operator.mul, left[at:at + len(window)], window))) > 500 * len(window)]
        self.assertTrue(heard, hertz)
        return heard[0], heard[-1]

    def test_with_comfort_tracks_of_a_disc_are_never_faded(self):
        for crossfade in (b"0", b"1"):
            self.setting(b"CFD", crossfade)
            sound = array.array("h", self.render(
                "--comfort=on", "--seconds", "12", "--cd", media("cd_mixed.cue"),
                self.playlist(track(2), track(3))))
            (first, end), (second, last) = self.sounding(sound, 523), self.sounding(sound, 698)
            self.assertEqual((first, end - first), (0, 2 * 20 - 1))
            self.assertEqual((second, last - second), (end + 1, 3 * 20 - 1))

    def heard_in_turn(self, *tracks):
        """Where tracks 2 and 3 of the mixed disc are heard, told by their tones."""
        self.setting(b"CFD", b"1")
        self.setting(b"CFDT", b"1")
        sound = array.array("h", self.render("--seconds", "12", "--cd", media("cd_mixed.cue"),
                                             self.playlist(media("wav_s16_44100_stereo.wav"),
                                                           *map(track, tracks))))
        del sound[:2 * 44100 * 2]  # of the file, which has tones, too
        return self.sounding(sound, 523), self.sounding(sound, 698)

    @odd
    def test_a_track_of_a_disc_follows_the_one_before_at_once(self):
        (first, end), (second, last) = self.heard_in_turn(2, 3)
        self.assertAlmostEqual(end - first, 2 * 20, delta=1)
        self.assertAlmostEqual(second, end + 1, delta=1)
        self.assertAlmostEqual(last - second, 3 * 20, delta=1)

    @odd
    def test_data_between_two_tracks_stops_for_a_second_at_most(self):
        (first, end), (second, last) = self.heard_in_turn(2, 1, 3)
        self.assertAlmostEqual(end - first, 2 * 20, delta=1)
        self.assertGreater(second, end)
        self.assertLessEqual(second, end + 1 + 22)
        self.assertAlmostEqual(last - second, 3 * 20, delta=1)

    @odd
    def test_a_track_of_a_disc_is_faded_into_the_next(self):
        # Of a long one the last half of a hundredth is faded out.
        self.setting(b"CFD", b"1")
        self.setting(b"CFDT", b"1")
        with open(self.path("long.bin"), "wb") as file:
            for hertz, seconds in ((500, 200), (700, 3)):  # each tone is the same in every second
                second = array.array("h", (round(9000 * math.sin(2 * math.pi * hertz * n / 44100))
                                           for n in range(44100) for _ in range(2)))
                file.write(second.tobytes() * seconds)
        with open(self.path("long.cue"), "w", encoding="ascii") as file:
            file.write('FILE "long.bin" BINARY\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n'
                       "  TRACK 02 AUDIO\n    INDEX 01 03:20:00\n")
        result = self.run_program("--render", self.path("out.wav"), "--seconds", "208", "--cd",
                                  self.path("long.cue"), self.playlist(
                                      media("wav_s16_44100_stereo.wav"), track(1), track(2)))
        self.assertEqual(result.returncode, 0, result.stderr)
        with open(self.path("out.wav"), "rb") as file:
            tag = file.read(22)[20]
            file.seek(-12 * 44100 * 2 * (4 if tag == 3 else 2), os.SEEK_END)
            sound = array.array("f" if tag == 3 else "h", file.read())
        if tag == 3:
            sound = array.array("f", (sample * 32768 for sample in sound))
        (_, end), (second, last) = self.sounding(sound, 500), self.sounding(sound, 700)
        self.assertGreater(end - second, 10)  # they are heard together
        self.assertLess(end - second, 24)
        self.assertAlmostEqual(last - second, 3 * 20, delta=3)


class Shown(CdTest):
    def setUp(self):
        super().setUp()
        self.start_screen()
        self.start_window_manager()

    def start(self, *words):
        self.player = self.start_program("--device", "silent", *words)
        self.shown_window = self.window_of(self.player)
        self.tool("xdotool", "windowactivate", "--sync", self.shown_window)

    def end(self):
        self.player.send_signal(signal.SIGTERM)
        self.assertEqual(self.player.wait(LIMIT), 0)

    def elements(self):
        said = self.tool(PYTHON, READER)
        self.assertEqual(said.returncode, 0, said.stderr)
        return {one["name"]: one for one in json.loads(said.stdout)["children"]
                if "showing" in one["states"]}

    def test_the_panel_shows_drive_and_tracks(self):
        self.start_bus()
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        for comfort, titles in (
                ("off", ["1. 1Première / Ann", "2. 2Второй / Björk & Co", "3. 3A = B / "]),
                ("on", ["1. Première / Ann", "2. Второй / Björk & Co", "3. A = B"])):
            self.start("--comfort=" + comfort, "--cd", media("cd_text.cue"))
            self.tool("xdotool", "key", "--clearmodifiers", "4")
            self.wait_until(lambda: self.elements().get("Tracks of the disc", {}).get("rows"),
                            "the tracks")
            cells = self.elements()["Tracks of the disc"]["cells"]
            self.assertEqual(cells, [[title, "00:01"] for title in titles])
            self.end()

    def test_a_track_is_gone_through_from_another_place(self):
        self.start_bus()
        remote = subprocess.Popen(
            [PYTHON, os.path.join(os.path.dirname(__file__), "bus_client.py"),
             "org.mpris.MediaPlayer2.tovik", "/org/mpris/MediaPlayer2"], env=self.environment,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.stack.callback(remote.communicate)

        def call(interface, method, signature, *arguments):
            remote.stdin.write(json.dumps(["call", interface, method, signature, arguments]) + "\n")
            remote.stdin.flush()
            return json.loads(remote.stdout.readline())

        def position():
            answer = call("org.freedesktop.DBus.Properties", "Get", "(ss)", PLAYER, "Position")
            return answer[0] if isinstance(answer, list) else -1

        self.start("--cd", media("cd_tones.cue"), track(2))
        self.wait_until(lambda: position() > 0, "the first sound")
        self.assertLess(position(), 2 * SECOND)
        call(PLAYER, "Seek", "(x)", 2 * SECOND)
        self.wait_until(lambda: position() >= 2 * SECOND, "the other place")
        self.wait_until(lambda: position() >= 3.5 * SECOND, "what follows it")
        self.end()

    def test_what_cannot_be_read_is_told(self):
        for name in ("cd_tones.cue", "cd_tones.bin"):
            shutil.copy(media(name), self.folder)
        self.start("--cd", self.path("cd_tones.cue"), self.playlist(track(1), track(2)))
        os.truncate(self.path("cd_tones.bin"), 300 * SECTOR)
        self.tool("xdotool", "key", "--clearmodifiers", "b")
        self.wait_until(lambda: "cannot be read" in self.tool(
            "xdotool", "getwindowname", self.shown_window).stdout, "the message")
        self.end()


if __name__ == "__main__":
    unittest.main()
